#include "ui/explorer/CategorizedSearchResults.h"

#include "base/FormatCount.h"
#include "base/Screen.h"
#include "data/StoredItemSearch.h"
#include "ui/common/StatePanel.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/controls/Link.h"
#include "ui/explorer/SearchResultList.h"
#include "ui/platform/Guard.h"
#include "ui/platform/MousePointer.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace quellbrook {

namespace {

// Twips.
constexpr float headerHeight = 600, countGap = 120, linkMargin = 240;
constexpr int arrowSize = 18;  // pixels

struct NumberCategory {
    const char* name;
    NumberSearchTypes numberType;
};

constexpr NumberCategory numberCategories[] = {
    {"Property ID", NumberSearchTypes::PropertyID},
    {"Vehicle Tag", NumberSearchTypes::VehicleTag},
    {"Incident ID", NumberSearchTypes::IncidentId},
    {"Case Number", NumberSearchTypes::CaseNumber},
};

void CenterVertically(Control& control, const Control& container) {
    control.SetTop(container.Height() / 2 - control.Height() / 2);
}

}  // namespace

CategorizedSearchResults::CategorizedSearchResults(QWidget* parent)
    : Control(parent), m_mnuCategories(new QMenu(this)) {
    MakeHeader();
    m_searchResults = new SearchResultList(this);
    m_searchResults->setObjectName("searchResults");
    m_searchResults->setAccessibleName("Search results");
    setFocusProxy(m_searchResults);
    connect(m_searchResults, &SearchResultList::ItemContextMenu, this, &CategorizedSearchResults::ItemContextMenu);
    connect(m_searchResults, &SearchResultList::ItemOpenRequest, this, &CategorizedSearchResults::ItemOpenRequest);
    MakeCover();
    m_mnuCategories->setObjectName("mnuCategories");
    m_mnuCategories->setAccessibleName("More results");
    LoadMenuEntry();
    ClearCategories();
}

void CategorizedSearchResults::MakeHeader() {
    m_picHeader = new GroupBox(this);
    m_picHeader->setObjectName("picHeader");
    m_picHeader->Move(0, 0, Width(), headerHeight);
    m_lblHeader = new Label(m_picHeader);
    m_lblHeader->setObjectName("lblHeader");
    m_lblHeader->SetType(Theme::Type::Section);
    m_lblResultCount = new Label(m_picHeader);
    m_lblResultCount->setObjectName("lblResultCount");
    m_lblResultCount->SetType(Theme::Type::Subtitle);
    m_lblResultCount->SetForeColor(Theme::Color::GrayText);
    m_imgDownArrow = new FontIcon(m_picHeader);
    m_imgDownArrow->setObjectName("imgDownArrow");
    m_imgDownArrow->SetIcon("chevron", arrowSize);
    m_imgDownArrow->SetForeColor(Theme::Color::Link);
    m_imgDownArrow->hide();
    m_lnkMoreResults = new Link(m_picHeader);
    m_lnkMoreResults->setObjectName("lnkMoreResults");
    m_lnkMoreResults->SetCaption("More Results");
    m_lnkMoreResults->hide();
    connect(m_lnkMoreResults, &Link::Clicked, this, [this] { lnkMoreResults_Click(); });
    m_picUnderline = new Line(m_picHeader);
    m_picUnderline->setObjectName("picUnderline");
}

void CategorizedSearchResults::MakeCover() {
    m_grpSearching = new GroupBox(this);
    m_grpSearching->setObjectName("grpSearching");
    m_grpSearching->SetBackColor(Theme::Color::Window);
    m_grpMessage = new StatePanel("busy", "Searching...", "Please wait. This may take a few moments. ", m_grpSearching);
    m_grpMessage->setObjectName("grpMessage");
    m_grpSearching->hide();
}

void CategorizedSearchResults::ExecuteQuery(const std::string& text) {
    const QPointer<CategorizedSearchResults> self(this);
    m_grpSearching->show();
    m_grpSearching->raise();
    ShowResults(true);
    SetMousePointer(MousePointer::Hourglass);
    repaint();
    Search(text);
    if (m_categories.empty())
        m_searchResults->SetItems(StoredItemSearch().Execute());  // no items
    else
        mnuCategory_Click(0);
    if (!self) return;
    setEnabled(!m_categories.empty());
    m_lnkMoreResults->setVisible(m_categories.size() >= 2);
    m_imgDownArrow->setVisible(m_categories.size() >= 2);
    m_grpSearching->hide();
    SetMousePointer(MousePointer::Default);
}

// Runs all five searches, even if an earlier one has found items.
void CategorizedSearchResults::Search(const std::string& text) {
    ClearCategories();
    m_lblHeader->SetCaption("");
    m_lblResultCount->SetCaption("");
    auto hideResults = qScopeGuard([this] { ShowResults(false); });
    for (const NumberCategory& category : numberCategories)
        AddCategory(category.name, StoredItemSearch().WithNumber(category.numberType, text).Execute());
    AddCategory("Description", StoredItemSearch().WithDescription("*" + text + "*").Execute());
    hideResults.dismiss();
}

// Keys must not reach what is under the cover.
void CategorizedSearchResults::ShowResults(bool visible) {
    m_picHeader->setVisible(visible);
    m_searchResults->setVisible(visible);
}

void CategorizedSearchResults::Refresh() { m_searchResults->DisplayVisibleItems(); }

bool CategorizedSearchResults::IsCovered() const { return m_grpSearching->IsShown(); }

void CategorizedSearchResults::ExecuteQueryInPlace(const std::string& text) {
    const QPointer<CategorizedSearchResults> self(this);
    const std::string name = m_selectedCategory < 0 ? "" : m_categories[static_cast<size_t>(m_selectedCategory)].name;
    const SearchResultList::Place place = m_searchResults->CurrentPlace();
    ExecuteQuery(text);
    if (!self) return;
    const auto same = std::find_if(m_categories.begin(), m_categories.end(),
                                   [&](const Category& category) { return category.name == name; });
    if (same == m_categories.end()) return;
    mnuCategory_Click(static_cast<int>(same - m_categories.begin()));
    if (self) m_searchResults->Restore(place);
}

StoredItemRef CategorizedSearchResults::SelectedItem() const { return m_searchResults->SelectedItem(); }

QAction* CategorizedSearchResults::LoadMenuEntry() {
    QAction* entry = m_mnuCategories->addAction(QString());
    entry->setObjectName("mnuCategory");
    entry->setCheckable(true);
    const int index = static_cast<int>(m_mnuCategory.size());
    connect(entry, &QAction::triggered, this, [this, index] { Guard([=, this] { mnuCategory_Click(index); }); });
    m_mnuCategory.push_back(entry);
    return entry;
}

void CategorizedSearchResults::ClearCategories() {
    for (; m_mnuCategory.size() > 1; m_mnuCategory.pop_back()) delete m_mnuCategory.back();
    m_mnuCategory.front()->setVisible(false);
    m_mnuCategory.front()->setChecked(false);
    m_categories.clear();
    m_selectedCategory = -1;
}

void CategorizedSearchResults::AddCategory(const std::string& name, std::shared_ptr<StoredItemList> results) {
    if (results->IsEmpty()) return;
    QAction* entry = m_categories.empty() ? m_mnuCategory.front() : LoadMenuEntry();
    entry->setText(ToQString(name + " (" + FormatCount(results->Count(), "%d", "%d") + ")"));
    entry->setVisible(true);
    m_categories.push_back({name, std::move(results)});
}

// Triggering a checkable entry toggles it, so its mark is set in any case.
void CategorizedSearchResults::mnuCategory_Click(int index) {
    const int previous = std::exchange(m_selectedCategory, index);
    if (previous >= 0) m_mnuCategory[static_cast<size_t>(previous)]->setChecked(false);
    m_mnuCategory[static_cast<size_t>(index)]->setChecked(true);
    if (index == previous) return;
    Guard([&] { ShowCategory(index); },
          [](const Error& error) {
              ShowMessage("Unexpected error loading search results in this category: " + error.Description(),
                          MessageStyle::Critical, "Error");
          });
}

void CategorizedSearchResults::ShowCategory(int index) {
    const Category& category = m_categories.at(static_cast<size_t>(index));
    m_lblHeader->SetCaption(ToQString(category.name));
    m_lblResultCount->SetCaption(ToQString(FormatCount(category.results->Count(), "%d Result", "%d Results")));
    RunLayout();
    SetMousePointer(MousePointer::Hourglass);
    const auto restorePointer = qScopeGuard([] { SetMousePointer(MousePointer::Default); });
    m_searchResults->SetItems(category.results);
}

void CategorizedSearchResults::lnkMoreResults_Click() {
    Guard([this] {
        const QPoint below = m_lnkMoreResults->mapToGlobal(QPoint(0, m_lnkMoreResults->height()));
        ShowContextMenu(this, m_mnuCategories, nullptr, below);
    });
}

void CategorizedSearchResults::Layout() {
    m_picHeader->SetWidth(ClientWidth());
    CenterVertically(*m_lblHeader, *m_picHeader);
    m_lblResultCount->SetLeft(m_lblHeader->Right() + countGap);
    m_lnkMoreResults->SetLeft(m_picHeader->Width() - m_lnkMoreResults->Width() - linkMargin);
    m_imgDownArrow->SetLeft(m_lnkMoreResults->Left() - m_imgDownArrow->Width());
    for (Control* part : {static_cast<Control*>(m_lblResultCount), static_cast<Control*>(m_lnkMoreResults),
                          static_cast<Control*>(m_imgDownArrow)})
        CenterVertically(*part, *m_picHeader);
    m_picUnderline->Move(0, m_picHeader->Height() - TwipsPerPixel, m_picHeader->Width(), TwipsPerPixel);
    m_searchResults->Move(0, headerHeight, ClientWidth(), ClientHeight() - headerHeight);
    m_grpSearching->Move(0, 0, ClientWidth(), ClientHeight());
    CenterInContainer(*m_grpMessage, *m_grpSearching, Center::Vertically | Center::Horizontally);
}

}  // namespace quellbrook
