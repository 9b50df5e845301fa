#include "ui/common/WindowShade.h"

#include "ui/platform/Guard.h"
#include "ui/style/Theme.h"

#include <QEvent>
#include <QPainter>

namespace quellbrook {

namespace {

constexpr const char* VeilName = "windowShade";
constexpr float Opacity = 0.45f;

class Veil : public QWidget {
public:
    explicit Veil(QWidget* window) : QWidget(window) {
        setObjectName(VeilName);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        setGeometry(window->rect());
        window->installEventFilter(this);
        raise();
        show();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
        return QWidget::eventFilter(watched, event);
    }
    void paintEvent(QPaintEvent*) override {
        GuardPainting([this] {
            QColor shade = Theme::Get(Theme::Color::Shade);
            shade.setAlphaF(Opacity);
            QPainter(this).fillRect(rect(), shade);
        });
    }
};

}  // namespace

WindowShade::WindowShade(QWidget* window) {
    if (!window->findChild<QWidget*>(VeilName, Qt::FindDirectChildrenOnly)) m_veil = new Veil(window);
}

WindowShade::~WindowShade() { delete m_veil; }

}  // namespace quellbrook
