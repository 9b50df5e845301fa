#include "ui/locations/SetupLocationsWizard.h"

#include "base/Screen.h"
#include "base/Text.h"
#include "data/StorageLocationStatic.h"
#include "ui/common/StatePanel.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/Activation.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Link.h"
#include "ui/controls/ListView.h"
#include "ui/platform/Guard.h"
#include "ui/platform/MousePointer.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QKeyEvent>
#include <QScopeGuard>
#include <QStyle>
#include <QTreeWidget>

namespace quellbrook {

namespace {

using Types = StorageLocationTypes;

constexpr float Gap = 240, SubtitleToPrompt = 480, CheckBoxWidth = 320;
// Pixels.
constexpr int HintToList = 20, ListToLink = 12, LinkToButtons = 20, ButtonWidth = 104;
constexpr int FontSize = 15, CheckBoxPicture = 20;
constexpr double RowFactor = 1.7;

enum Column { CheckBox, Name };

std::vector<WizardPage> MakePages() {
    return {
        {"Which of These Locations are Disposal Locations?",
         "A disposal location refers to the final destination or location for an item that has been diposed of "
         "(destroyed, sold, etc.)",
         Types::DisposalLocation},
        {"Which of These Locations are Sign-Out Locations?",
         "A sign-out location is a location outside of your department's control, where evidence temporarily leaves "
         "your custody but will be returned to department custody.\n\n"
         "Examples are court, the crime lab, or placing an item in an officer's custody.",
         Types::External},
        {"Which of These Locations Are \"Other\" Locations?",
         "Some locations may not clearly fit into categories such as \"sign-in location\" or \"sign-out location\", "
         "such as \"Other\". Select the items that can't be categorized as a sign-out, sign-in, or disposal locations "
         "below, or click Back to categorize some or all of these under another category.",
         Types::Other},
        {"Which of These Locations are Sign-In Locations?",
         "A sign-in location is a location under your department's control, such as an evidence room, locker, cage, or "
         "impound lot.",
         Types::Internal, false, true},
    };
}

std::string KeyOf(const StorageLocation& location) { return "L" + std::to_string(location.ID()); }
int32_t IdOf(const QString& key) { return key.mid(1).toInt(); }

Label* AddText(QWidget* parent, const char* name, Theme::Type type) {
    auto* label = new Label(parent);
    label->setObjectName(name);
    label->SetType(type);
    label->SetWordWrap(true);
    return label;
}

}  // namespace

SetupLocationsWizard::SetupLocationsWizard(QWidget* parent) : View(parent) {
    setAccessibleName("Categorize Storage Locations");
    BuildTexts();
    BuildList();
    BuildNoLocations();
    BuildButtons();
}

void SetupLocationsWizard::BuildTexts() {
    m_title = AddText(this, "lblTitle", Theme::Type::Title);
    m_title->SetCaption("Categorize Your Storage Locations");
    m_subtitle = AddText(this, "lblSubtitle", Theme::Type::Subtitle);
    m_subtitle->SetForeColor(Theme::Color::GrayText);
    m_subtitle->SetCaption(
        "Before you can use the evidence management system, you need to categorize your existing storage locations by "
        "identifiying what type of location each one is.");
    m_prompt = AddText(this, "lblPrompt", Theme::Type::Section);
    m_hintText = AddText(this, "lblHintText", Theme::Type::Body);
}

void SetupLocationsWizard::BuildList() {
    m_list = new ListView(this);
    m_list->setObjectName("lvwLocations");
    m_list->SetFramed(true);
    m_list->SetHeaderVisible(false);
    m_list->SetRowLines(false);
    m_list->SetType(Theme::Type::RowHeading);
    m_list->SetIconSize(FontSize, RowFactor, CheckBoxPicture);
    m_list->SetCheckBoxes(true);
    m_list->AddColumn("check_box", "", CheckBoxWidth);
    m_list->AddColumn("name", "Name", 0);
    QTreeWidget* tree = m_list->Tree();
    tree->setAccessibleName("Locations");
    tree->setSelectionMode(QAbstractItemView::NoSelection);
    tree->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    tree->installEventFilter(this);
    connect(m_list, &ListView::RowToggled, this, [this](int row) { Guard([&] { lvwLocations_ItemCheck(row); }); });
}

void SetupLocationsWizard::BuildNoLocations() {
    m_noLocations = new GroupBox(this);
    m_noLocations->setObjectName("picNoLocations");
    m_noLocations->SetBackColor(Theme::Color::Window);
    m_noLocations->SetFramed(true);
    m_noLocations->hide();
    auto* message =
        new StatePanel("check", "All Locations Assigned",
                       "All of your storage locations have been assigned to a valid storage category.", m_noLocations);
    message->setObjectName("picMessage");
    message->Icon()->setObjectName("Label1");
    message->Icon()->SetForeColor(Theme::Color::Link);
    message->Title()->setObjectName("Label3");
    message->Sentence()->setObjectName("Label2");
    m_message = message;
}

void SetupLocationsWizard::BuildButtons() {
    m_selectAll = new Link(this);
    m_selectAll->setObjectName("lnkSelectAll");
    m_selectAll->SetCaption("Select All");
    connect(m_selectAll, &Link::Clicked, this, [this] { Guard([this] { lnkSelectAll_Click(); }); });
    m_count = new Label(this);
    m_count->setObjectName("lblCount");
    m_count->SetType(Theme::Type::Subtitle);
    m_count->SetForeColor(Theme::Color::GrayText);
    m_back = new FlatButton(this);
    m_back->setObjectName("btnBack");
    m_back->SetCaption("BACK");
    m_back->SetInverted(true);
    m_back->hide();
    connect(m_back, &FlatButton::Clicked, this, [this] { Guard([this] { btnBack_Click(); }); });
    m_next = new FlatButton(this);
    m_next->setObjectName("btnNext");
    m_next->SetCaption("NEXT");
    connect(m_next, &FlatButton::Clicked, this, [this] { btnNext_Click(); });
    for (FlatButton* button : {m_back, m_next}) {
        button->SetWidth(ToTwips(ButtonWidth));
        button->SetHeight(ToTwips(Theme::FieldHeight));
    }
}

void SetupLocationsWizard::Shown() {
    m_pages = MakePages();
    m_selections.clear();
    for (const WizardPage& page : m_pages) m_selections[page.LocationType];
    ShowPage();
}

WizardPage& SetupLocationsWizard::Page() { return m_pages.at(static_cast<size_t>(m_pageIndex)); }
const WizardPage& SetupLocationsWizard::Page() const { return m_pages.at(static_cast<size_t>(m_pageIndex)); }

void SetupLocationsWizard::ShowTexts() {
    ShowLinkCaption();
    m_prompt->SetCaption(Page().Prompt);
    m_hintText->SetCaption(Page().HintText);
    m_back->setVisible(m_pageIndex >= 1);
    Layout();
}

void SetupLocationsWizard::ShowPage() {
    ShowTexts();
    LoadList();
    UpdateCount();
    m_next->SetCaption(IsFinishingPage() ? "FINISH" : "NEXT");
    FocusPage();
}

// After a failure the list is empty, and the button for the next page stays hidden.
void SetupLocationsWizard::LoadList() {
    m_next->hide();
    m_noLocations->hide();
    m_list->show();
    SetMousePointer(MousePointer::Hourglass);
    const auto restorePointer = qScopeGuard([] { SetMousePointer(MousePointer::Default); });
    try {
        m_list->ClearRows();
        AddSubtree(*GetStorageLocationStatic().GetRoot(Types::Unassigned), std::string());
    } catch (...) {
        const Error error = CurrentError();
        m_list->ClearRows();
        UpdateCount();
        Raise(error.Number(), error.Source(), "Error loading locations: " + error.Description());
    }
    m_list->ClearSelection();
    m_list->setVisible(m_list->RowCount() > 0);
    m_noLocations->setVisible(m_list->RowCount() == 0);
    m_next->show();
}

// Sublocations of a location that is ticked on another page are not listed: they move with it unless they are ticked
// themselves.
void SetupLocationsWizard::AddSubtree(const StorageLocation& location, const std::string& path) {
    for (const StorageLocationRef& sub : location.SubLocations()) {
        if (IsTickedElsewhere(KeyOf(*sub))) continue;
        std::string subPath = path.empty() ? path : path + " > ";
        subPath += Trim(sub->Name());
        AddRow(*sub, subPath);
        AddSubtree(*sub, subPath);
    }
}

void SetupLocationsWizard::AddRow(const StorageLocation& location, const std::string& path) {
    const int row = m_list->RowCount();
    const std::string key = KeyOf(location);
    m_list->AddRow(ToQString(key), "unselected", {{ToQString(location.Name())}});
    QTreeWidgetItem* item = m_list->Tree()->topLevelItem(row);
    for (const Column column : {Column::CheckBox, Column::Name}) {
        m_list->SetCellTooltip(row, column, ToQString(path));
        item->setData(column, Qt::AccessibleDescriptionRole, ToQString(path));
    }
    m_list->SetRowChecked(row, m_selections.at(Page().LocationType).Contains(key));
    ApplyTick(row);
}

bool SetupLocationsWizard::IsTickedElsewhere(const std::string& key) const {
    const Types here = Page().LocationType;
    for (const auto& [type, ticks] : m_selections)
        if (type != here && ticks.Contains(key)) return true;
    return false;
}

void SetupLocationsWizard::ApplyTick(int row) {
    const bool ticked = m_list->RowChecked(row);
    m_list->SetCellStyle(row, Column::Name, false, ticked);
    Ticks& ticks = m_selections.at(Page().LocationType);
    const QString key = m_list->RowKey(row);
    if (ticked)
        ticks.TryAdd(IdOf(key), ToUtf8(key));
    else if (ticks.Contains(ToUtf8(key)))
        ticks.Remove(ToUtf8(key));
}

int SetupLocationsWizard::TickedRows() const {
    int count = 0;
    for (int row = 0; row < m_list->RowCount(); ++row) count += m_list->RowChecked(row) ? 1 : 0;
    return count;
}

void SetupLocationsWizard::UpdateCount() {
    const int count = TickedRows();
    m_count->SetCaption(QString("%1 location%2 selected").arg(count).arg(count == 1 ? "" : "s"));
}

void SetupLocationsWizard::ShowLinkCaption() {
    m_selectAll->SetCaption(Page().AllSelected ? "Unselect All" : "Select All");
}

void SetupLocationsWizard::FocusPage() {
    if (m_list->RowCount() == 0) return m_next->setFocus();
    m_list->SetCurrentRow(0);
    m_list->setFocus();
}

bool SetupLocationsWizard::IsFinishingPage() const { return m_list->RowCount() == 0 || Page().IsLast; }

void SetupLocationsWizard::btnNext_Click() {
    Guard([this] { GoNext(); },
          [](const Error& error) { ShowMessage(error.Description(), MessageStyle::Critical, "Error"); });
}

void SetupLocationsWizard::GoNext() {
    if (m_pages.empty()) return;  // never shown
    RequireAllTicked();
    if (IsFinishingPage()) {
        WriteCategories();
        Completed();
    } else {
        ++m_pageIndex;
        ShowPage();
    }
}

void SetupLocationsWizard::RequireAllTicked() const {
    if (!Page().IsLast || TickedRows() == m_list->RowCount()) return;
    Raise(ErrorNumber::General, "SetupLocationsWizard.btnNext_Click",
          "You cannot leave any locations unassigned.\r\n\r\n"
          "Please select all the remaining locations, or click 'Back' and assign one or more of them to other "
          "categories.");
}

// The reload makes a second attempt see what the first has moved. A location that was deleted meanwhile needs no
// category.
void SetupLocationsWizard::WriteCategories() {
    SetMousePointer(MousePointer::Hourglass);
    const auto restorePointer = qScopeGuard([] { SetMousePointer(MousePointer::Default); });
    try {
        StorageLocationStatic& locations = GetStorageLocationStatic();
        locations.Refresh();
        for (const Types type : {Types::DisposalLocation, Types::External, Types::Internal, Types::Other}) {
            for (const int32_t id : m_selections.at(type)) {
                if (const StorageLocationRef location = locations.FindByID(id)) location->Move(locations.GetRoot(type));
            }
        }
    } catch (...) {
        Raise(ErrorNumber::General, "SetupLocationsWizard.WriteCategories",
              "Error assigning location categories: " + CurrentError().Description());
    }
}

void SetupLocationsWizard::btnBack_Click() {
    if (m_pageIndex < 1) return;
    --m_pageIndex;
    try {
        ShowPage();
    } catch (...) {
        ++m_pageIndex;  // the first page has no button for a second attempt
        ShowTexts();
        TrySetFocus(m_back);
        throw;
    }
}

void SetupLocationsWizard::lnkSelectAll_Click() {
    if (m_pages.empty()) return;  // never shown
    const bool ticked = !Page().AllSelected;
    Page().AllSelected = ticked;
    for (int row = 0; row < m_list->RowCount(); ++row) {
        m_list->SetRowChecked(row, ticked);
        ApplyTick(row);
    }
    UpdateCount();
    ShowLinkCaption();
    Layout();
}

void SetupLocationsWizard::lvwLocations_ItemCheck(int row) {
    ApplyTick(row);
    UpdateCount();
}

bool SetupLocationsWizard::PressNext(const QKeyEvent& key) {
    if (key.key() == Qt::Key_Space || !IsActivation(key) || !m_next->IsShown()) return false;
    m_next->Click();
    return true;
}

void SetupLocationsWizard::keyPressEvent(QKeyEvent* event) {
    if (!PressNext(*event)) View::keyPressEvent(event);
}

bool SetupLocationsWizard::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && PressNext(*static_cast<QKeyEvent*>(event))) return true;
    return View::eventFilter(watched, event);
}

void SetupLocationsWizard::Layout() {
    GuardSilently([this] {
        PlaceTexts();
        PlaceList();
    });
}

void SetupLocationsWizard::PlaceTexts() {
    float top = 0;
    for (const auto& [label, gap] :
         {std::pair(m_title, 0.0f), {m_subtitle, Gap}, {m_prompt, SubtitleToPrompt}, {m_hintText, Gap}}) {
        top += gap;
        label->Move(0, top);
        label->SetWidth(Width());
        top = label->Bottom();
    }
}

void SetupLocationsWizard::PlaceList() {
    m_next->Move(Width() - m_next->Width(), Height() - m_next->Height());
    m_back->Move(m_next->Left() - Gap - m_back->Width(), m_next->Top());
    m_selectAll->Move(0, m_next->Top() - ToTwips(LinkToButtons) - m_selectAll->Height());
    m_count->Move(m_selectAll->Right() + Gap, m_selectAll->Top());
    const float top = m_hintText->Bottom() + ToTwips(HintToList);
    m_list->Move(0, top, Width(), m_selectAll->Top() - ToTwips(ListToLink) - top);
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, m_list->Tree());
    m_list->SetColumnWidth(Column::Name, m_list->Width() - CheckBoxWidth - ToTwips(scrollBar));
    m_noLocations->Move(m_list->Left(), m_list->Top(), m_list->Width(), m_list->Height());
    CenterInContainer(*m_message, *m_noLocations, Center::Horizontally | Center::Vertically);
}

}  // namespace quellbrook
