#include "ui/items/SubmitEvidenceView.h"

#include "access/User.h"
#include "base/ObjectList.h"
#include "core/Actions.h"
#include "data/CustodyRecords.h"
#include "data/StoredItemSearch.h"
#include "ui/common/StatePanel.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/BarcodeListenerControl.h"
#include "ui/controls/CellDelegate.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/controls/Link.h"
#include "ui/controls/ListView.h"
#include "ui/items/GoBack.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QAccessible>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStringList>
#include <QStyle>
#include <QTreeWidget>

#include <cmath>

namespace quellbrook {

namespace {

constexpr float OuterMargin = 240, CountGap = 60, ColumnSlack = 240;
constexpr float DisplayIdShare = 0.2f, DescriptionShare = 0.4f;
// Pixels.
constexpr int TitleAreaHeight = 56, TitleTop = 14, CloseHeight = 40;
constexpr int SearchGroupHeight = 112, SearchTop = 28, SearchWidth = 352, FilterLeft = 360, FilterWidth = 160;
constexpr int SearchButtonTop = 76, SearchButtonWidth = 128;
constexpr int ResultsTop = 180, HeaderTop = 8, SeparatorTop = 32, ListTop = 33;
constexpr int BottomBarHeight = 60, SubmitWidth = 178;
constexpr int MarkSize = 24;
constexpr double RowFactor = 1.4;

enum Column { SelectField, PaddingLeft, Icon, DisplayId, Description, IncidentIds, PaddingRight };

const QString AllRows = "all";

struct FilterOption {
    const char* text;
    NumberSearchTypes numberType;
    const char* placeholder;
};

constexpr FilterOption Filters[] = {
    {"Property ID", NumberSearchTypes::PropertyID, "Type Property ID here"},
    {"Vehicle Tag", NumberSearchTypes::VehicleTag, "Type vehicle tag here"},
    {"Incident ID", NumberSearchTypes::IncidentId, "Type Incident ID here"},
    {"Case Number", NumberSearchTypes::CaseNumber, "Type case number here"},
};

bool IsOffered(NumberSearchTypes numberType) {
    switch (numberType) {
    case NumberSearchTypes::PropertyID: return GetUser().Can(GetPermissions().VIEW_PROPERTY());
    case NumberSearchTypes::VehicleTag: return GetUser().Can(GetPermissions().VIEW_VEHICLE());
    default: return true;
    }
}

QString IncidentIdsOf(StoredItem& item) {
    QStringList ids;
    for (const auto& incident : item.RelatedIncidents()) ids << ToQString(incident->DisplayID());
    return ids.join(", ");
}

}  // namespace

SubmitEvidenceView::SubmitEvidenceView(QWidget* parent) : View(parent) {
    BuildTitleArea();
    BuildSearch();
    BuildResults();
    BuildNoResults();
    // Without a listener, a scan would be typed into the field that has the focus.
    (new BarcodeListenerControl(this))->setObjectName("barcodeListener");
    for (GroupBox* panel : {m_results, m_searchGroup}) panel->SetTabIndex(0);
    m_titleArea->SetAlign(Alignment::Top);
}

void SubmitEvidenceView::BuildTitleArea() {
    m_titleArea = new GroupBox(this);
    m_titleArea->setObjectName("picTitleArea");
    m_titleArea->SetHeight(ToTwips(TitleAreaHeight));
    auto* title = new Label(m_titleArea);
    title->setObjectName("lblTitle");
    title->SetType(Theme::Type::Title);
    title->SetCaption("Check in New Evidence");
    title->Move(OuterMargin, ToTwips(TitleTop));
    m_close = AddCloseLink(m_titleArea, CloseHeight);
}

void SubmitEvidenceView::BuildSearch() {
    m_searchGroup = new GroupBox(this);
    m_searchGroup->setObjectName("grpSearch");
    m_searchGroup->Move(0, ToTwips(TitleAreaHeight), ToTwips(FilterLeft + FilterWidth), ToTwips(SearchGroupHeight));
    auto* caption = new Label(m_searchGroup);
    caption->setObjectName("Label1");
    caption->SetType(Theme::Type::BodySemiBold);
    caption->SetCaption("Search for property to check in");
    m_search = new FlatTextbox(m_searchGroup);
    m_search->setObjectName("search");
    m_search->SetPlaceholder("Type here to search...");
    m_search->SetAccessibleCaption(caption->Caption());
    m_search->Move(0, ToTwips(SearchTop), ToTwips(SearchWidth), ToTwips(Theme::FieldHeight));
    m_cboFilter = new FlatDropdown(m_searchGroup);
    m_cboFilter->setObjectName("cboFilter");
    m_cboFilter->SetAccessibleCaption("Search by");
    m_cboFilter->Move(ToTwips(FilterLeft), ToTwips(SearchTop), ToTwips(FilterWidth), ToTwips(Theme::FieldHeight));
    connect(m_cboFilter, &FlatDropdown::Clicked, this, [this] { Guard([this] { cboFilter_Click(); }); });
    m_btnSearch = new FlatButton(m_searchGroup);
    m_btnSearch->setObjectName("btnSearch");
    m_btnSearch->SetCaption("Search");
    m_btnSearch->SetInverted(true);
    m_btnSearch->Move(0, ToTwips(SearchButtonTop), ToTwips(SearchButtonWidth), ToTwips(Theme::FieldHeight));
    connect(m_btnSearch, &FlatButton::Clicked, this, [this] { Guard([this] { btnSearch_Click(); }); });
}

void SubmitEvidenceView::BuildResults() {
    m_results = new GroupBox(this);
    m_results->setObjectName("grpResults");
    m_results->SetTop(ToTwips(ResultsTop));
    m_results->hide();
    Label* header = LoadMember(m_headers, m_results);
    header->setObjectName("lblHeader");
    header->SetCaption("Header");
    header->hide();
    m_separator = new Line(m_results);
    m_separator->setObjectName("lnSeparator");
    BuildList();
    BuildBottomBar();
}

void SubmitEvidenceView::BuildList() {
    m_list = new ListView(m_results);
    m_list->setObjectName("searchResults");
    m_list->SetTop(ToTwips(ListTop));
    m_list->SetHeaderVisible(false);
    m_list->SetIconSize(MarkSize, RowFactor);
    m_list->SetIconColumn(Column::Icon);
    m_list->SetSearchColumn(Column::DisplayId);
    m_list->SetCheckBoxes(true);
    QTreeWidget* tree = m_list->Tree();
    tree->setAccessibleName("Search results");
    tree->setSelectionMode(QAbstractItemView::NoSelection);
    tree->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    const auto showHand = [this](const QPoint& at) { Guard([&] { ShowHandCursor(at); }); };
    connect(m_list, &ListView::MouseDown, this, [showHand](int, const QPoint& at) { showHand(at); });
    connect(m_list, &ListView::MouseMove, this, showHand);
    connect(m_list, &ListView::MouseUp, this, [showHand](int, const QPoint& at) { showHand(at); });
    connect(tree->horizontalScrollBar(), &QScrollBar::valueChanged, this,
            [this] { Guard([this] { BuildColumnHeaders(); }); });
    connect(m_list, &ListView::RowToggled, this,
            [this](int row, bool checked) { Guard([&] { SetRowSelected(row, checked); }); });
}

void SubmitEvidenceView::BuildBottomBar() {
    m_bottomBar = new GroupBox(m_results);
    m_bottomBar->setObjectName("grpBottomBar");
    m_bottomBar->SetBackColor(Theme::Color::Panel);
    m_bottomBar->SetHeight(ToTwips(BottomBarHeight));
    m_bottomRule = new Line(m_bottomBar);
    m_selectAll = new Link(m_bottomBar);
    m_selectAll->setObjectName("imgSelectAll");
    connect(m_selectAll, &Link::Clicked, this, [this] { Guard([this] { imgSelectAll_Click(); }); });
    m_selectedCount = new Label(m_bottomBar);
    m_selectedCount->setObjectName("lblSelectedCount");
    m_btnSubmit = new FlatButton(m_bottomBar);
    m_btnSubmit->setObjectName("btnSubmit");
    m_btnSubmit->SetCaption("Submit into Evidence");
    m_btnSubmit->SetWidth(ToTwips(SubmitWidth));
    m_btnSubmit->SetHeight(ToTwips(Theme::FieldHeight));
    connect(m_btnSubmit, &FlatButton::Clicked, this, [this] { Guard([this] { btnSubmit_Click(); }); });
    UpdateSelectionDisplay();
}

void SubmitEvidenceView::BuildNoResults() {
    m_noResults = new GroupBox(this);
    m_noResults->setObjectName("grpNoResults");
    m_noResults->hide();
    auto* message =
        new StatePanel("search", "No items found.",
                       "Check for typos in your search filter, or try a different search term.", m_noResults);
    message->setObjectName("grpNoResultsMessage");
    message->Title()->setObjectName("Label3");
    message->Sentence()->setObjectName("Label2");
    m_noResultsMessage = message;
}

void SubmitEvidenceView::Show(const std::shared_ptr<Dictionary>&) {
    m_results->hide();
    AddColumns();
    BuildColumnHeaders();
    LoadFilterOptions();
    UpdateSelectionDisplay();
}

void SubmitEvidenceView::AddColumns() {
    const auto letters = [this](int count) { return m_list->TextWidth(QString(count, 'm')); };
    m_list->ClearColumns();
    m_list->AddColumn("select_field", "", 0);
    m_list->AddColumn("padding_left", "", 0);
    m_list->AddColumn("icon", "", ToTwips(m_list->RowHeight()));
    m_list->AddColumn("display_id", "ID", letters(20));
    m_list->AddColumn("desc", "Description", letters(30));
    m_list->AddColumn("incident_ids", "Incident(s)", letters(25));
    m_list->AddColumn("padding_right", "", 0);
}

void SubmitEvidenceView::BuildColumnHeaders() {
    float left = m_list->Left() - ToTwips(m_list->Tree()->header()->offset());
    for (int column = 1; column < m_list->ColumnCount(); ++column) {
        const QString caption = m_list->ColumnCaption(column);
        if (column == static_cast<int>(m_headers.size())) {
            Label* added = LoadMember(m_headers, m_results);
            added->SetAccessibleRole(caption.isEmpty() ? QAccessible::Whitespace : QAccessible::ColumnHeader);
            added->SetType(Theme::Type::TagText);
            added->SetForeColor(Theme::Color::GrayText);
            added->setContentsMargins(CellDelegate::TextMargin, 0, 0, 0);
            added->SetAutoSize(false);
            added->Move(0, ToTwips(HeaderTop), 0, ToTwips(Theme::LineHeight(Theme::Type::TagText)));
        }
        Label* header = m_headers[static_cast<size_t>(column)];
        header->SetLeft(left);
        header->SetWidth(m_list->ColumnWidth(column));
        header->SetCaption(caption + " ");
        header->show();
        left += m_list->ColumnWidth(column);
    }
}

void SubmitEvidenceView::LoadFilterOptions() {
    m_cboFilter->Clear();
    m_filter = -1;
    for (const FilterOption& option : Filters)
        if (IsOffered(option.numberType)) m_cboFilter->AddItem(option.text, static_cast<int32_t>(option.numberType));
    m_cboFilter->SetListIndex(0);
}

// The dropdown also reports that the user has chosen the same entry again.
void SubmitEvidenceView::cboFilter_Click() {
    if (m_cboFilter->ListIndex() == m_filter) return;
    m_filter = m_cboFilter->ListIndex();
    m_search->SetText("");
    for (const FilterOption& option : Filters)
        if (static_cast<int32_t>(option.numberType) == m_cboFilter->ItemData(m_filter))
            m_search->SetPlaceholder(option.placeholder);
}

void SubmitEvidenceView::btnSearch_Click() {
    RunSearch(m_search->Text(), static_cast<NumberSearchTypes>(m_cboFilter->ItemData(m_cboFilter->ListIndex())));
}

// What the bottom bar shows is about the rows of the search before, until the user ticks a row.
void SubmitEvidenceView::RunSearch(const QString& text, NumberSearchTypes numberType) {
    const auto found = StoredItemSearch().Untracked().Tagged().WithNumber(numberType, ToUtf8(text)).Execute();
    std::vector<std::vector<ListView::Cell>> rows;
    for (int32_t i = 0; i < found->Count(); ++i) {
        const StoredItemRef item = found->ItemAt(i);
        rows.push_back(
            {{}, {}, {ToQString(item->DisplayID())}, {ToQString(item->Description())}, {IncidentIdsOf(*item)}});
    }
    m_foundItems = found;
    m_list->ClearRows();
    for (const auto& cells : rows) {
        m_list->AddRow(QString::number(m_list->RowCount() + 1), "unselected", cells);
        // Bold, so that no text is cut off when its row is ticked.
        const float width = m_list->TextWidth(cells.back().text, true) + ColumnSlack;
        m_list->SetColumnWidth(Column::IncidentIds, std::max(m_list->ColumnWidth(Column::IncidentIds), width));
    }
    LayoutControls();
    m_results->setVisible(!rows.empty());
    m_noResults->setVisible(rows.empty());
}

void SubmitEvidenceView::SetRowSelected(int row, bool selected) {
    ShowRowSelected(row, selected);
    UpdateSelectionDisplay();
}

void SubmitEvidenceView::ShowRowSelected(int row, bool selected) {
    m_list->SetRowChecked(row, selected);
    for (int column = 0; column < m_list->ColumnCount(); ++column) m_list->SetCellStyle(row, column, false, selected);
}

std::vector<int> SubmitEvidenceView::GetSelectedRows() const {
    std::vector<int> rows;
    for (int row = 0; row < m_list->RowCount(); ++row)
        if (m_list->RowChecked(row)) rows.push_back(row);
    return rows;
}

void SubmitEvidenceView::UpdateSelectionDisplay() {
    const size_t count = GetSelectedRows().size();
    const QString hint = count > 0 ? "Unselect All" : "Select All";
    m_selectedCount->SetCaption(QString("%1 %2 selected").arg(count).arg(count == 1 ? "item" : "items"));
    m_selectAll->SetIcon(count > 0 ? "selected" : "unselected", MarkSize);
    m_selectAll->SetQuiet(count == 0);
    m_selectAll->setToolTip(hint);
    m_selectAll->SetAccessibleCaption(hint);
    m_btnSubmit->setEnabled(count > 0);
    LayoutBottomBar();
}

void SubmitEvidenceView::ShowHandCursor(const QPoint& at) {
    QWidget* viewport = m_list->Tree()->viewport();
    if (m_list->HitTestIcon(at) >= 0)
        SetHandCursor(viewport);
    else
        viewport->unsetCursor();
}

// The tag follows the clicks on this mark alone, not those on rows.
void SubmitEvidenceView::imgSelectAll_Click() {
    m_selectAll->SetTag(m_selectAll->Tag() == AllRows ? QString() : AllRows);
    for (int row = 0; row < m_list->RowCount(); ++row) ShowRowSelected(row, m_selectAll->Tag() == AllRows);
    UpdateSelectionDisplay();
}

void SubmitEvidenceView::btnSubmit_Click() {
    const auto items = std::make_shared<ObjectVector>();
    for (const int row : GetSelectedRows()) items->Add(m_foundItems->ItemAt(m_list->RowKey(row).toInt() - 1));
    GetActions().BeginTransaction(TransactionType::SignIn, items);
    GetActions().GoBack();
    GetActions().NavigateTo(ViewNames::Cart, nullptr);
}

void SubmitEvidenceView::keyPressEvent(QKeyEvent* event) {
    if (!GoBackByKey(*event)) View::keyPressEvent(event);
}

void SubmitEvidenceView::Layout() { LayoutControls(); }

void SubmitEvidenceView::LayoutControls() {
    GuardSilently([this] {
        m_close->Move(Width() - m_close->Width() - OuterMargin, 0);
        CenterInContainer(*m_searchGroup, *this, Center::Horizontally);
        CenterInContainer(*m_btnSearch, *m_searchGroup, Center::Horizontally);
        m_results->Move(0, m_results->Top(), Width(), Height() - m_results->Top());
        m_bottomBar->SetWidth(m_results->Width());
        m_bottomBar->Move(0, m_results->Height() - m_bottomBar->Height());
        m_list->SetLeft(OuterMargin);
        m_list->SetWidth(m_results->Width() - 2 * OuterMargin);
        FitColumns();
        m_list->SetHeight(ListHeight(m_results->Height() - m_list->Top() - m_bottomBar->Height()));
        m_separator->Move(m_list->Left(), ToTwips(SeparatorTop), m_list->Width(), TwipsPerPixel);
        m_noResults->Move(m_results->Left(), m_results->Top(), m_results->Width(), m_results->Height());
        CenterInContainer(*m_noResultsMessage, *m_noResults, Center::Horizontally | Center::Vertically);
        BuildColumnHeaders();
        LayoutBottomBar();
    });
}

void SubmitEvidenceView::FitColumns() {
    if (m_list->ColumnCount() == 0) return;
    const float icon = m_list->ColumnWidth(Column::Icon);
    m_list->SetColumnWidth(Column::DisplayId, m_list->Width() * DisplayIdShare - icon);
    m_list->SetColumnWidth(Column::Description, m_list->Width() * DescriptionShare);
    float table = 0;
    for (const Column column : {Column::Icon, Column::DisplayId, Column::Description, Column::IncidentIds})
        table += m_list->ColumnWidth(column);
    m_list->SetColumnWidth(Column::PaddingLeft, (m_list->Width() - table) / 2);
}

// No half row is ever shown, not even above a horizontal scroll bar.
float SubmitEvidenceView::ListHeight(float available) const {
    if (m_list->RowCount() == 0) return available;
    const float rowHeight = ToTwips(m_list->RowHeight());
    const float bar = ToTwips(style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, m_list->Tree()));
    float columns = 0;
    for (int column = 0; column < m_list->ColumnCount(); ++column) columns += m_list->ColumnWidth(column);
    const bool scrollsDown = static_cast<float>(m_list->RowCount()) * rowHeight > available;
    const bool scrollsAcross = columns > m_list->Width() - (scrollsDown ? bar : 0);
    const float barHeight = scrollsAcross ? bar : 0;
    return std::floor((available - barHeight) / rowHeight) * rowHeight + barHeight;
}

void SubmitEvidenceView::LayoutBottomBar() {
    m_bottomRule->Move(0, 0, m_bottomBar->Width(), TwipsPerPixel);
    if (m_list->ColumnCount() == 0) return;
    const float mark = ToTwips(m_list->RowHeight());
    m_selectAll->Move(m_list->Left() + m_list->ColumnWidth(Column::PaddingLeft), m_selectAll->Top(), mark, mark);
    m_selectedCount->SetLeft(m_selectAll->Right() + CountGap);
    CenterInContainer(*m_selectAll, *m_bottomBar, Center::Vertically);
    CenterInContainer(*m_selectedCount, *m_bottomBar, Center::Vertically);
    CenterInContainer(*m_btnSubmit, *m_bottomBar, Center::Horizontally | Center::Vertically);
}

}  // namespace quellbrook
