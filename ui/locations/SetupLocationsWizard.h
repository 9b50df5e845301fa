#pragma once

#include "base/Event.h"
#include "base/KeyedCollection.h"
#include "data/StorageLocation.h"
#include "ui/controls/View.h"

#include <QString>

#include <map>
#include <vector>

namespace quellbrook {

class FlatButton;
class GroupBox;
class Label;
class Link;
class ListView;

// One step of the wizard: the locations of one category.
struct WizardPage {
    QString Prompt;
    QString HintText;
    StorageLocationTypes LocationType;
    bool AllSelected = false;  // what the select-all link did last
    bool IsLast = false;       // leaves no location without a category
};

// Lets the user categorize the uncategorized locations, one category per page. Nothing is written before FINISH.
// Each location moves in its own transaction; moves made before a failure are kept. Ticked locations move to the top of
// their category; unticked sublocations stay in their container.
class SetupLocationsWizard : public View {
    Q_OBJECT

public:
    explicit SetupLocationsWizard(QWidget* parent = nullptr);
    std::string TypeName() const override { return "SetupLocationsWizard"; }

    Event<> Completed;  // every ticked location has been moved

protected:
    void Shown() override;
    void Layout() override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // The keys of ticked locations with their identifiers, in the order in which they were ticked.
    using Ticks = KeyedCollection<int32_t>;

    void BuildTexts();
    void BuildList();
    void BuildNoLocations();
    void BuildButtons();

    WizardPage& Page();  // the current page
    const WizardPage& Page() const;
    void ShowTexts();
    void ShowPage();
    void LoadList();
    void AddSubtree(const StorageLocation& location, const std::string& path);
    void AddRow(const StorageLocation& location, const std::string& path);
    bool IsTickedElsewhere(const std::string& key) const;
    void ApplyTick(int row);
    int TickedRows() const;
    void UpdateCount();
    void ShowLinkCaption();
    void FocusPage();
    bool PressNext(const QKeyEvent& key);

    bool IsFinishingPage() const;
    void GoNext();
    void RequireAllTicked() const;
    void WriteCategories();

    void btnNext_Click();
    void btnBack_Click();
    void lnkSelectAll_Click();
    void lvwLocations_ItemCheck(int row);

    void PlaceTexts();
    void PlaceList();

    std::vector<WizardPage> m_pages;
    int32_t m_pageIndex = 0;
    std::map<StorageLocationTypes, Ticks> m_selections;

    Label* m_title = nullptr;
    Label* m_subtitle = nullptr;
    Label* m_prompt = nullptr;
    Label* m_hintText = nullptr;
    ListView* m_list = nullptr;
    GroupBox* m_noLocations = nullptr;
    GroupBox* m_message = nullptr;
    Link* m_selectAll = nullptr;
    Label* m_count = nullptr;
    FlatButton* m_back = nullptr;
    FlatButton* m_next = nullptr;
};

}  // namespace quellbrook
