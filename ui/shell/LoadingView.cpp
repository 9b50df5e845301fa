#include "ui/shell/LoadingView.h"

#include "ui/common/StatePanel.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/Label.h"

namespace quellbrook {

namespace {

constexpr int GroupWidth = 400;  // pixels

}  // namespace

LoadingView::LoadingView(QWidget* parent)
    : View(parent),
      m_group(new StatePanel("busy", tr("Please wait..."), tr("Please wait while the current operation completes."),
                             this, GroupWidth)) {
    setObjectName("loading");
    setAccessibleName(m_group->Title()->Caption());
    m_group->setObjectName("loadingGroup");
    m_group->Icon()->setObjectName("imgLoading");
    m_group->Title()->setObjectName("Label2");
    m_group->Sentence()->setObjectName("lblMessage");
}

void LoadingView::Layout() { CenterInContainer(*m_group, *this, Center::Horizontally | Center::Vertically); }

}  // namespace quellbrook
