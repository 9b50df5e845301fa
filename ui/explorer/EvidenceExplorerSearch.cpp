#include "base/Screen.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/Activation.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/explorer/CategorizedSearchResults.h"
#include "ui/explorer/EvidenceExplorer.h"
#include "ui/explorer/ExplorerHeading.h"
#include "ui/explorer/LocationTree.h"
#include "ui/explorer/LocationView.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QPointer>

namespace quellbrook {

namespace {

// Pixels.
constexpr int groupLeft = 16, groupWidth = 280, groupHeight = 64;
constexpr int boxTop = 8, boxWidth = 264;

void ReportSearchError(const Error& error) {
    ShowMessage("Search error: " + error.Description(), MessageStyle::Critical, "Search Error");
}

}  // namespace

void EvidenceExplorer::MakeSearchBox() {
    m_grpSearch = new GroupBox(this);
    m_grpSearch->setObjectName("grpSearch");
    m_grpSearch->Move(ToTwips(groupLeft), 0, ToTwips(groupWidth), ToTwips(groupHeight));
    m_search = new FlatTextbox(m_grpSearch);
    m_search->setObjectName("search");
    m_search->SetPlaceholder("Type here to search...");
    m_search->SetAccessibleCaption("Search");
    m_search->SetIcon("search");
    m_search->Move(0, ToTwips(boxTop), ToTwips(boxWidth), m_search->Height());
    connect(m_search, &FlatTextbox::KeyPressed, this, [this](int keyCode) { search_KeyPressed(keyCode); });
}

void EvidenceExplorer::search_KeyPressed(int keyCode) {
    if (keyCode != KeyCode::Enter) return;
    Guard(
        [this] {
            const std::string text = ToUtf8(m_search->Text());
            if (!text.empty()) DoSearchRequest(text);
        },
        ReportSearchError);
}

void EvidenceExplorer::DoSearchRequest(const std::string& text) {
    const QPointer<EvidenceExplorer> self(this);
    const auto keepFocus = KeepFocus();
    m_searchText = text;
    SetSelectedLocation(nullptr);
    if (!self) return;
    m_picInfobar->SetTitle("");
    m_picInfobar->SetSubtitle("");
    m_picInfobar->ShowLinks(nullptr);
    m_itemPane->hide();
    m_searchResultPane->show();
    repaint();
    m_searchResultPane->ExecuteQuery(m_searchText);
    if (!self) return;
    ShowSearchHeading();
    TrySetFocus(m_searchResultPane);
}

void EvidenceExplorer::ShowSearchHeading() {
    m_picInfobar->SetTitle("Search Results");
    m_picInfobar->SetSubtitle("Showing stored items matching '" + ToQString(m_searchText) + "'");
    m_picInfobar->LayoutHeading();
    m_picInfobar->repaint();
}

void EvidenceExplorer::SearchAgain() {
    const QPointer<EvidenceExplorer> self(this);
    const QPointer<QWidget> focused(window()->focusWidget());
    const auto keepFocus = KeepFocus();
    Guard([this] { m_searchResultPane->ExecuteQueryInPlace(m_searchText); }, ReportSearchError);
    if (!self) return;
    if (m_searchResultPane->IsCovered()) return;
    ShowSearchHeading();
    // Filling the list has moved the focus to it.
    if (focused && window()->focusWidget() != focused) TrySetFocus(focused);
}

void EvidenceExplorer::GoToSearchBox() {
    const QPointer<EvidenceExplorer> self(this);
    TrySetFocus(m_search);
    if (self) m_search->SelectAll();
}

}  // namespace quellbrook
