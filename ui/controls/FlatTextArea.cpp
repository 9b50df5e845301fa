#include "ui/controls/FlatTextArea.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"
#include "ui/style/FieldFrame.h"
#include "ui/style/FocusRing.h"
#include "ui/style/Theme.h"

#include <QPlainTextEdit>
#include <QTextDocument>

namespace quellbrook {

namespace {

constexpr int Margin = 10;

}  // namespace

FlatTextArea::FlatTextArea(QWidget* parent) : Control(parent), m_edit(new QPlainTextEdit(this)) {
    m_edit->setFrameShape(QFrame::NoFrame);
    m_edit->setTabChangesFocus(true);
    m_edit->setFont(Theme::Font(Theme::Type::Body));
    m_edit->document()->setDocumentMargin(0);
    m_edit->viewport()->setAutoFillBackground(false);
    setFocusProxy(m_edit);
    setFocusPolicy(Qt::StrongFocus);
    FocusRing::Show(this);
    connect(m_edit, &QPlainTextEdit::textChanged, this, [this] { Guard([this] { emit Changed(); }); });
    Control::Move(0, 0, ToTwips(200), ToTwips(112));
}

// QPlainTextEdit::toPlainText would replace non-breaking spaces.
QString FlatTextArea::Text() const {
    QString text = m_edit->document()->toRawText();
    for (const auto end : {QChar::ParagraphSeparator, QChar::LineSeparator}) text.replace(end, QLatin1Char('\n'));
    return text;
}

void FlatTextArea::SetText(const QString& text) { m_edit->setPlainText(text); }
void FlatTextArea::SetAccessibleCaption(const QString& name) { m_edit->setAccessibleName(name); }

void FlatTextArea::Layout() { m_edit->setGeometry(rect().adjusted(Margin, Margin - 2, -2, -2)); }

void FlatTextArea::paintEvent(QPaintEvent*) {
    GuardPainting([this] { PaintField(*this, isEnabled()); });
}

}  // namespace quellbrook
