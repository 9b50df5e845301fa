#pragma once

#include "core/ViewStore.h"
#include "data/StoredItemList.h"
#include "ui/controls/View.h"

#include <memory>
#include <vector>

namespace quellbrook {

class FlatButton;
class FlatDropdown;
class FlatTextbox;
class GroupBox;
class Label;
class Line;
class Link;
class ListView;

// The screen that checks in new evidence: finds items that are not in storage yet, lets the user tick some of them, and
// begins a sign-in with those. A scan does nothing here and is not typed into a field.
class SubmitEvidenceView : public View, public AppView {
    Q_OBJECT

public:
    explicit SubmitEvidenceView(QWidget* parent = nullptr);
    std::string TypeName() const override { return "SubmitEvidenceView"; }

    // Clears the results and offers the kinds of number that the user may search by. Ignores the parameters.
    void Show(const std::shared_ptr<Dictionary>& viewParameters) override;

protected:
    void Layout() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void BuildTitleArea();
    void BuildSearch();
    void BuildResults();
    void BuildList();
    void BuildBottomBar();
    void BuildNoResults();
    void AddColumns();
    void BuildColumnHeaders();

    void LoadFilterOptions();
    void RunSearch(const QString& text, NumberSearchTypes numberType);
    void SetRowSelected(int row, bool selected);
    void ShowRowSelected(int row, bool selected);
    std::vector<int> GetSelectedRows() const;
    void UpdateSelectionDisplay();
    void ShowHandCursor(const QPoint& at);

    void LayoutControls();
    void FitColumns();
    float ListHeight(float available) const;
    void LayoutBottomBar();

    void btnSearch_Click();
    void cboFilter_Click();
    void imgSelectAll_Click();
    void btnSubmit_Click();

    std::shared_ptr<StoredItemList> m_foundItems;
    int m_filter = -1;  // the chosen entry of m_cboFilter

    GroupBox* m_titleArea = nullptr;
    Link* m_close = nullptr;
    GroupBox* m_searchGroup = nullptr;
    FlatTextbox* m_search = nullptr;
    FlatDropdown* m_cboFilter = nullptr;
    FlatButton* m_btnSearch = nullptr;
    GroupBox* m_results = nullptr;
    std::vector<Label*> m_headers;  // by column; the first is never shown
    Line* m_separator = nullptr;
    ListView* m_list = nullptr;
    GroupBox* m_bottomBar = nullptr;
    Line* m_bottomRule = nullptr;
    Link* m_selectAll = nullptr;
    Label* m_selectedCount = nullptr;
    FlatButton* m_btnSubmit = nullptr;
    GroupBox* m_noResults = nullptr;
    GroupBox* m_noResultsMessage = nullptr;
};

}  // namespace quellbrook
