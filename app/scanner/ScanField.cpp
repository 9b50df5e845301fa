#include "app/scanner/ScanField.h"

#include "app/common/HostGuard.h"
#include "component/Quellbrook.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace quellbrook {

namespace {

constexpr int fieldHeight = 44, textMargin = 12;

bool IsModifier(int key) {
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock: return true;
    default: return false;
    }
}

std::string NameOf(int key) {
    const QString name = QKeySequence(key).toString(QKeySequence::PortableText);
    const bool isShown = !name.isEmpty() && std::all_of(name.begin(), name.end(), [](QChar c) { return c.isPrint(); });
    return (isShown ? name : QStringLiteral("key %1").arg(key, 0, 16)).toStdString();
}

std::vector<ScannedKey> KeysOf(const QKeyEvent& event) {
    std::vector<ScannedKey> keys;
    for (const uint character : event.text().toUcs4()) keys.push_back({static_cast<char32_t>(character), {}});
    if (keys.empty()) keys.push_back({0, NameOf(event.key())});
    return keys;
}

}  // namespace

ScanField::ScanField(QWidget* parent) : QWidget(parent), m_timer(MakeTimer()) {
    setFocusPolicy(Qt::StrongFocus);
    ShowFocusRing(this);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(tr("Test field for the scanner"));
    setAccessibleDescription(tr("Scan the test label while this field has the focus."));
    m_timer->SetInterval(BurstPause);
    m_timer->SetSingleShot(true);
    m_timer->Elapsed = [this] { GuardHost(this, [this] { EndBurst(); }); };
}

QSize ScanField::sizeHint() const { return {320, fieldHeight}; }

QSize ScanField::minimumSizeHint() const { return {120, fieldHeight}; }

// Otherwise Tab would move the focus and not arrive as a key.
bool ScanField::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyRelease: event->accept(); return true;
    case QEvent::KeyPress: {
        event->accept();
        GuardHost(this, [&] {
            const auto& key = *static_cast<QKeyEvent*>(event);
            if (!m_burst.empty() || !Leave(key)) TakeKey(key);
        });
        return true;
    }
    case QEvent::FocusIn:
    case QEvent::FocusOut: update(); break;
    default: break;
    }
    return QWidget::event(event);
}

void ScanField::mousePressEvent(QMouseEvent*) { setFocus(Qt::MouseFocusReason); }

bool ScanField::Leave(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Escape: focusNextPrevChild(true); return true;
    case Qt::Key_Backtab: focusNextPrevChild(false); return true;
    default: return false;
    }
}

void ScanField::TakeKey(const QKeyEvent& event) {
    if (IsModifier(event.key())) return;
    for (ScannedKey& key : KeysOf(event))
        if (m_burst.size() < LongestBurst) m_burst.push_back(std::move(key));
    m_timer->Start();
}

void ScanField::EndBurst() { emit Read(std::exchange(m_burst, {})); }

void ScanField::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Dark));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    const QColor gray = palette().color(QPalette::Disabled, QPalette::WindowText);
    painter.setPen(hasFocus() ? palette().color(QPalette::Text) : gray);
    const QString text = hasFocus() ? tr("Scan the test label now") : tr("Click here, then scan the test label");
    const QRect textRect = rect().adjusted(textMargin, 0, -textMargin, 0);
    painter.drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     fontMetrics().elidedText(text, Qt::ElideRight, textRect.width()));
}

}  // namespace quellbrook
