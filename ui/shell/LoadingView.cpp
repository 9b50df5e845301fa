#include "ui/shell/LoadingView.h"

#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/platform/Twips.h"

namespace quellbrook {

namespace {

constexpr int GroupWidth = 400;
constexpr int GroupHeight = 100;
constexpr int RingSize = 32;
constexpr int CaptionTop = 44;
constexpr int MessageTop = 72;

}  // namespace

LoadingView::LoadingView(QWidget* parent) : View(parent), m_group(new GroupBox(this)), m_ring(new FontIcon(m_group)) {
    setObjectName("loading");
    setAccessibleName(tr("Please wait..."));
    m_group->setObjectName("loadingGroup");
    m_group->Move(0, 0, ToTwips(GroupWidth), ToTwips(GroupHeight));
    m_ring->setObjectName("imgLoading");
    m_ring->SetIcon("busy", RingSize);
    m_ring->Move(ToTwips((GroupWidth - RingSize) / 2.0), 0);
    AddLine("Label2", "Please wait...", ToTwips(CaptionTop))->SetType(Theme::Type::Section);
    AddLine("lblMessage", "Please wait while the current operation completes.", ToTwips(MessageTop))
        ->SetForeColor(Theme::Color::GrayText);
}

Label* LoadingView::AddLine(const char* name, const char* caption, float top) {
    auto* line = new Label(m_group);
    line->setObjectName(name);
    line->SetAutoSize(false);
    line->SetTextAlignment(Qt::AlignCenter);
    line->SetCaption(tr(caption));
    line->Move(0, top, m_group->Width(), ToTwips(24));
    return line;
}

void LoadingView::Layout() {
    m_group->Move(ClientWidth() / 2 - m_group->Width() / 2, ClientHeight() / 2 - m_group->Height() / 2);
}

}  // namespace quellbrook
