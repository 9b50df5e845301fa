#include "ui/controls/FlatDropdown.h"

#include "ui/controls/FilteringBox.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"
#include "ui/style/FieldFrame.h"
#include "ui/style/FocusRing.h"
#include "ui/style/Theme.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QPointer>
#include <QSignalBlocker>

#include <utility>

namespace quellbrook {

namespace {

DropdownBox* MakeBox(FlatDropdown::Typing typing, FlatDropdown* parent) {
    if (typing == FlatDropdown::Typing::Filters) return new FilteringBox(parent);
    return new DropdownBox(parent);
}

}  // namespace

FlatDropdown::FlatDropdown(QWidget* parent, Typing typing) : Control(parent), m_box(MakeBox(typing, this)) {
    setFocusProxy(m_box);
    setFocusPolicy(Qt::StrongFocus);
    FocusRing::Show(this);
    m_box->installEventFilter(this);
    List()->installEventFilter(this);
    List()->viewport()->installEventFilter(this);
    connect(m_box, &QComboBox::currentIndexChanged, this, [this] {
        m_raised = true;
        RaiseClicked();
    });
    connect(m_box, &QComboBox::activated, this, [this] {
        if (!std::exchange(m_raised, false)) RaiseClicked();
    });
    Control::Move(0, 0, ToTwips(200), ToTwips(Theme::FieldHeight));
}

void FlatDropdown::RaiseClicked() {
    Guard([this] { emit Clicked(); });
}

void FlatDropdown::Clear() {
    const QSignalBlocker quiet(m_box);
    m_box->ForgetDroppedText();
    m_box->clear();
}

void FlatDropdown::AddItem(const QString& text, int32_t itemData) {
    const QSignalBlocker quiet(m_box);
    const int before = m_box->currentIndex();
    m_box->addItem(text, itemData);
    if (m_box->currentIndex() != before) m_box->setCurrentIndex(before);
}

int FlatDropdown::Count() const { return m_box->count(); }
QString FlatDropdown::ItemText(int index) const { return m_box->itemText(index); }
int32_t FlatDropdown::ItemData(int index) const { return m_box->itemData(index).toInt(); }
int FlatDropdown::ListIndex() const { return m_box->currentIndex(); }

void FlatDropdown::SetListIndex(int index) {
    if (index < -1 || index >= Count()) Raise(ErrorNumber::InvalidPropertyValue, "FlatDropdown.ListIndex");
    m_box->ForgetDroppedText();
    if (index == ListIndex()) return;
    const QPointer<FlatDropdown> self(this);
    m_box->setCurrentIndex(index);
    if (self) m_raised = false;
}

void FlatDropdown::SetAccessibleCaption(const QString& name) { m_box->setAccessibleName(name); }
void FlatDropdown::SetPlaceholder(const QString& text) { m_box->setPlaceholderText(text); }
bool FlatDropdown::TakeDroppedText() { return m_box->TakeDroppedText(); }
QComboBox* FlatDropdown::Box() const { return m_box; }
QAbstractItemView* FlatDropdown::List() const { return m_box->List(); }

void FlatDropdown::Layout() { m_box->setGeometry(rect()); }

void FlatDropdown::paintEvent(QPaintEvent*) {
    GuardPainting([this] { PaintField(*this, isEnabled()); });
}

bool FlatDropdown::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease: m_raised = false; break;
    default: break;
    }
    return Control::eventFilter(watched, event);
}

}  // namespace quellbrook
