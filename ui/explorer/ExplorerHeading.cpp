#include "ui/explorer/ExplorerHeading.h"

#include "access/User.h"
#include "data/StorageLocation.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/controls/Link.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QScopeGuard>

#include <algorithm>

namespace quellbrook {

namespace {

// Twips.
constexpr float titleTop = 150, subtitleTop = 600, rightInset = 120;
constexpr float buttonTop = 120, buttonInset = 180;
constexpr float linksGap = 300, linkGap = 60, linkMargin = 180, linkTop = 30;
constexpr float leastTitle = 2400;

}  // namespace

ExplorerHeading::ExplorerHeading(QWidget* parent)
    : GroupBox(parent),
      m_lblTitle(new Label(this)),
      m_lblSubtitle(new Label(this)),
      m_edit(AddLink("EditLocation", "Edit", "edit", &ExplorerHeading::EditRequested)),
      m_delete(AddLink("DeleteLocation", "Delete", "delete", &ExplorerHeading::DeleteRequested)),
      m_add(AddLink("AddLocation", "Create Location", "add", &ExplorerHeading::AddRequested)),
      m_print(AddLink("PrintLocationBarcode", "Print Location Label", "print", &ExplorerHeading::PrintRequested)),
      m_btnAddEvidence(new FlatButton(this)),
      m_lnSeparator(new Line(this)) {
    m_lblTitle->setObjectName("lblTitle");
    m_lblTitle->SetType(Theme::Type::Title);
    m_lblTitle->Move(0, titleTop);
    m_lblSubtitle->setObjectName("lblSubtitle");
    m_lblSubtitle->SetType(Theme::Type::Subtitle);
    m_lblSubtitle->SetForeColor(Theme::Color::GrayText);
    m_lblSubtitle->Move(0, subtitleTop);
    m_btnAddEvidence->setObjectName("btnAddEvidence");
    m_btnAddEvidence->SetCaption("Add Evidence");
    m_btnAddEvidence->SetIcon("add");
    m_btnAddEvidence->Move(0, buttonTop, ToTwips(m_btnAddEvidence->sizeHint().width()), m_btnAddEvidence->Height());
    connect(m_btnAddEvidence, &FlatButton::Clicked, this, &ExplorerHeading::AddEvidenceRequested);
    m_lnSeparator->setObjectName("lnSeparator");
}

ExplorerHeading::LinkGroup ExplorerHeading::AddLink(const char* noun, const QString& caption, const QString& icon,
                                                    void (ExplorerHeading::*request)()) {
    auto* group = new GroupBox(this);
    group->setObjectName(QString("grp") + noun);
    group->hide();
    auto* link = new Link(group);
    link->setObjectName(QString("lnk") + noun);
    link->SetAccessibleCaption(caption);
    link->SetCaption(caption);
    link->SetIcon(icon);
    link->SetTop(linkTop);
    connect(link, &Link::Clicked, this, request);
    return {group, link, caption};
}

void ExplorerHeading::SetTitle(const QString& title) {
    m_lblTitle->SetCaption(title);
    SetPath(QString());
}

void ExplorerHeading::SetPath(const QString& path) {
    m_lblTitle->setToolTip(path.isEmpty() ? QString() : PlainTooltip(path));
    m_lblTitle->setAccessibleDescription(path);
}

void ExplorerHeading::SetSubtitle(const QString& subtitle) { m_lblSubtitle->SetCaption(subtitle); }

void ExplorerHeading::ShowLinks(const StorageLocation* location) {
    const bool isRoot = location && location->IsRoot();
    const bool isBelowRoot = location && !isRoot;
    const PermissionsStatic& permissions = GetPermissions();
    m_edit.group->setVisible(isBelowRoot && GetUser().Can(permissions.EDIT_STORAGE_LOCATIONS()));
    m_delete.group->setVisible(isBelowRoot && GetUser().Can(permissions.DELETE_STORAGE_LOCATIONS()));
    m_add.group->setVisible(isRoot && GetUser().Can(permissions.ADD_STORAGE_LOCATIONS()));
    m_print.group->setVisible(isBelowRoot && GetUser().Can(permissions.PRINT_BARCODE_LABELS()));
}

void ExplorerHeading::EnableByRights(const CartStore& cart) {
    const PermissionsStatic& permissions = GetPermissions();
    const auto apply = qScopeGuard([&] { m_btnAddEvidence->setEnabled(cart.IsEmpty() && m_mayAddEvidence); });
    m_mayAddEvidence = GetUser().Can(permissions.APPEND_CHAIN_OF_CUSTODY());
    m_add.link->setEnabled(GetUser().Can(permissions.ADD_STORAGE_LOCATIONS()));
    m_edit.link->setEnabled(GetUser().Can(permissions.EDIT_STORAGE_LOCATIONS()));
    m_delete.link->setEnabled(GetUser().Can(permissions.DELETE_STORAGE_LOCATIONS()));
}

void ExplorerHeading::SetCompact(bool compact) {
    for (const LinkGroup& part : {m_edit, m_delete, m_add, m_print}) {
        part.link->SetCaption(compact ? QString() : part.caption);
        part.link->setToolTip(compact ? part.caption : QString());
        part.group->SetWidth(part.link->Width() + linkMargin);
        part.group->SetHeight(part.link->Height() + 2 * linkTop);
    }
}

// Returns the width that is left for the title.
float ExplorerHeading::PlaceLinks() {
    m_btnAddEvidence->SetLeft(Width() - m_btnAddEvidence->Width() - buttonInset);
    m_print.group->SetLeft(m_btnAddEvidence->Left() - linkGap - m_print.group->Width());
    const float right = m_print.group->IsShown() ? m_print.group->Left() : m_btnAddEvidence->Left();
    // "Delete" keeps its place while "Edit" is hidden.
    const float edit = linksGap + m_edit.group->Width();
    float beside = 0;
    if (m_add.group->IsShown())  // instead of "Edit" and "Delete"
        beside = linksGap + m_add.group->Width();
    else if (m_delete.group->IsShown())
        beside = edit + linkGap + m_delete.group->Width();
    else if (m_edit.group->IsShown())
        beside = edit;
    return right - beside - rightInset;
}

void ExplorerHeading::LayoutHeading() {
    const float wanted = ToTwips(m_lblTitle->sizeHint().width());
    SetCompact(false);
    float space = PlaceLinks();
    if (space < std::min(wanted, leastTitle)) {
        SetCompact(true);
        space = PlaceLinks();
    }
    m_lblTitle->SetWidth(std::clamp(space, 0.0f, wanted));
    const float subtitleSpace = std::max(0.0f, m_btnAddEvidence->Left() - rightInset);
    m_lblSubtitle->SetWidth(std::min(ToTwips(m_lblSubtitle->sizeHint().width()), subtitleSpace));

    const float linksTop = m_lblTitle->Bottom() - m_edit.group->Height();
    m_edit.group->Move(m_lblTitle->Right() + linksGap, linksTop);
    m_delete.group->Move(m_edit.group->Right() + linkGap, linksTop);
    m_add.group->Move(m_edit.group->Left(), linksTop);
    m_print.group->SetTop(linksTop);
    m_lnSeparator->Move(0, Height() - TwipsPerPixel, Width() - rightInset, TwipsPerPixel);
}

}  // namespace quellbrook
