#include "ui/controls/BarcodeListenerControl.h"

#include "ui/platform/Guard.h"
#include "ui/style/Icons.h"
#include "ui/style/Theme.h"

#include <QApplication>
#include <QPainter>

namespace quellbrook {

namespace {

constexpr int IconSize = 32;  // pixels

// Whether a view that is a later or raised sibling covers the widget.
bool IsCoveredByView(const QWidget& widget) {
    const QObjectList siblings = widget.parentWidget()->children();
    for (auto index = siblings.indexOf(&widget) + 1; index < siblings.size(); ++index) {
        const auto* above = qobject_cast<const View*>(siblings[index]);
        if (above && above->isVisible() && above->geometry().contains(widget.geometry())) return true;
    }
    return false;
}

// A menu that is open belongs to what was on the screen before the scan.
void CloseMenus() {
    Guard([] {
        while (QWidget* menu = QApplication::activePopupWidget())
            if (!menu->close()) return;
    });
}

bool IsParentOnTop(const QWidget& control) {
    for (const QWidget* widget = control.parentWidget(); widget && !widget->isWindow(); widget = widget->parentWidget())
        if (IsCoveredByView(*widget)) return false;
    return true;
}

}  // namespace

BarcodeListenerControl::BarcodeListenerControl(QWidget* parent)
    : View(parent),
      m_listener({[this] { return IsListening(); }, [this] { return QApplication::activeWindow() == window(); }}) {
    const int size = IsInsideDesigner() ? IconSize : 0;
    setFixedSize(size, size);
    setFocusPolicy(Qt::NoFocus);
    m_listener.BarcodeScanned.connect([this](int32_t barcodeType, const std::string& barcodeData) {
        CloseMenus();
        m_barcodeScanned(barcodeType, barcodeData);
    });
}

bool BarcodeListenerControl::IsListening() const { return isVisible() && isEnabled() && IsParentOnTop(*this); }

void BarcodeListenerControl::Shown() {
    m_listener.Shown();
    if (!m_limit) m_limit.emplace(m_listener);
}

void BarcodeListenerControl::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        if (!IsInsideDesigner()) return;
        QPainter painter(this);
        const QColor ink = Theme::Get(Theme::Color::Text);
        painter.drawPixmap(0, 0, Icons::Pixmap("identifiers", IconSize, ink, devicePixelRatioF()));
    });
}

}  // namespace quellbrook
