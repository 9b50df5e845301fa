#pragma once

#include "data/StoredItemList.h"
#include "ui/controls/Control.h"

#include <memory>
#include <string>
#include <vector>

class QAction;
class QMenu;

namespace quellbrook {

class FontIcon;
class GroupBox;
class Label;
class Line;
class Link;
class SearchResultList;
class StatePanel;

// Searches for a text in five ways. Each search with results is a category. The control shows one category at a time
// and offers the others in a menu.
class CategorizedSearchResults : public Control {
    Q_OBJECT

public:
    explicit CategorizedSearchResults(QWidget* parent = nullptr);
    std::string TypeName() const override { return "CategorizedSearchResults"; }

    // Runs all five searches and shows the first category. Throws if a search fails; then the control stays covered,
    // and the mouse pointer is an hourglass until the next search ends.
    void ExecuteQuery(const std::string& text);
    // Does the same, but keeps the category, the selection and the scroll position where it can.
    void ExecuteQueryInPlace(const std::string& text);
    // Shows what the items have read again since, such as their status after a transfer. Runs no search.
    void Refresh();
    // Whether a search has failed and none has ended since.
    bool IsCovered() const;

    // Null without results.
    StoredItemRef SelectedItem() const;

signals:
    // The receiver sets the menu and the entry to show as the default one.
    void ItemContextMenu(QMenu*& menu, QAction*& defaultItem);
    void ItemOpenRequest(const quellbrook::StoredItemRef& item);

protected:
    void Layout() override;

private:
    struct Category {
        std::string name;
        std::shared_ptr<StoredItemList> results;
    };

    void MakeHeader();
    void MakeCover();
    void Search(const std::string& text);
    void ShowResults(bool visible);
    void ClearCategories();
    void AddCategory(const std::string& name, std::shared_ptr<StoredItemList> results);
    QAction* LoadMenuEntry();
    void mnuCategory_Click(int index);
    void ShowCategory(int index);
    void lnkMoreResults_Click();

    GroupBox* m_picHeader = nullptr;
    Label* m_lblHeader = nullptr;
    Label* m_lblResultCount = nullptr;
    Link* m_lnkMoreResults = nullptr;
    FontIcon* m_imgDownArrow = nullptr;
    Line* m_picUnderline = nullptr;
    QMenu* m_mnuCategories;
    SearchResultList* m_searchResults = nullptr;
    GroupBox* m_grpSearching = nullptr;
    StatePanel* m_grpMessage = nullptr;

    std::vector<QAction*> m_mnuCategory;  // the first entry always exists and is hidden without categories
    std::vector<Category> m_categories;   // in the order of their menu entries
    int m_selectedCategory = -1;
};

}  // namespace quellbrook
