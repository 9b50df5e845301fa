#include "ui/controls/FlatTextbox.h"

#include "ui/controls/Activation.h"
#include "ui/platform/Guard.h"
#include "ui/platform/KeyRepetition.h"
#include "ui/platform/Twips.h"
#include "ui/style/FieldFrame.h"
#include "ui/style/FocusRing.h"
#include "ui/style/Icons.h"
#include "ui/style/Theme.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int SideMargin = 10;
constexpr int IconSize = 20;

// Has no frame or background; the control paints both.
class PlainEdit : public QLineEdit {
public:
    explicit PlainEdit(QWidget* parent) : QLineEdit(parent) {
        setFrame(false);
        setTextMargins(0, 0, 0, 0);
        setFont(Theme::Font(Theme::Type::Body));
        setAttribute(Qt::WA_MacShowFocusRect, false);
        QPalette transparent = palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            transparent.setColor(group, QPalette::Base, Qt::transparent);
        setPalette(transparent);
    }
};

}  // namespace

FlatTextbox::FlatTextbox(QWidget* parent) : Control(parent), m_edit(new PlainEdit(this)) {
    setFocusProxy(m_edit);
    setFocusPolicy(Qt::StrongFocus);
    FocusRing::Show(this);
    WatchKeyRepetition();
    m_edit->installEventFilter(this);
    connect(m_edit, &QLineEdit::textChanged, this, [this] { Guard([this] { emit Changed(); }); });
    Control::Move(0, 0, ToTwips(200), ToTwips(Theme::FieldHeight));
}

QString FlatTextbox::Text() const { return m_edit->text(); }
void FlatTextbox::SetText(const QString& text) { m_edit->setText(text); }
QString FlatTextbox::Placeholder() const { return m_edit->placeholderText(); }
void FlatTextbox::SetPlaceholder(const QString& placeholder) { m_edit->setPlaceholderText(placeholder); }
void FlatTextbox::SetPassword(bool password) {
    m_edit->setEchoMode(password ? QLineEdit::Password : QLineEdit::Normal);
}
void FlatTextbox::SelectAll() { m_edit->selectAll(); }
void FlatTextbox::SetAccessibleCaption(const QString& name) { m_edit->setAccessibleName(name); }

void FlatTextbox::SetIcon(const QString& iconName) {
    m_icon = iconName;
    RunLayout();
    update();
}

void FlatTextbox::Layout() {
    const int iconWidth = m_icon.isEmpty() ? 0 : IconSize + SideMargin;
    m_edit->setGeometry(SideMargin, 1, std::max(0, width() - 2 * SideMargin - iconWidth), std::max(0, height() - 2));
}

void FlatTextbox::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        PaintField(*this, isEnabled());
        if (m_icon.isEmpty()) return;
        const QColor ink = Theme::Get(isEnabled() ? Theme::Color::GrayText : Theme::Color::DisabledText);
        QPainter(this).drawPixmap(width() - SideMargin - IconSize - 1, (height() - IconSize) / 2,
                                  Icons::Pixmap(m_icon, IconSize, ink, devicePixelRatioF()));
    });
}

bool FlatTextbox::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const int code = KeyCodeOf(key);
        const bool isHeldEnter = code == KeyCode::Enter && IsRepetition(key);
        const QPointer<FlatTextbox> self(this);
        if (code != 0 && !isHeldEnter) Guard([this, code] { emit KeyPressed(code); });
        if (!self) return true;
    }
    return Control::eventFilter(watched, event);
}

}  // namespace quellbrook
