#include "ui/controls/FilteringBox.h"

#include <QAbstractProxyModel>
#include <QCompleter>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalBlocker>

#include <utility>

namespace quellbrook {

namespace {

// QLineEdit has this much space at each side of its text.
constexpr int EditMargin = 2;

// The field keeps the focus behind a menu and while another window is active.
bool IsTemporary(const QFocusEvent& event) {
    return event.reason() == Qt::PopupFocusReason || event.reason() == Qt::ActiveWindowFocusReason;
}

}  // namespace

FilteringBox::FilteringBox(QWidget* parent) : DropdownBox(parent), m_completer(new QCompleter(model(), this)) {
    SetUpEdit();
    SetUpList();
}

void FilteringBox::SetUpEdit() {
    auto* edit = new QLineEdit(this);
    setLineEdit(edit);
    setCompleter(nullptr);  // ours stays separate, since one of the edit replaces the text by what is highlighted
    setInsertPolicy(QComboBox::NoInsert);
    edit->hide();
    edit->setAttribute(Qt::WA_TransparentForMouseEvents);
    QPalette transparent = edit->palette();
    transparent.setColor(QPalette::Base, Qt::transparent);
    edit->setPalette(transparent);
    connect(edit, &QLineEdit::textChanged, this, [this, edit] {
        if (!edit->isModified()) StartOver();
        ShowEdit();
    });
    connect(edit, &QLineEdit::selectionChanged, this, [this] { ShowEdit(); });
    connect(edit, &QLineEdit::textEdited, this, [this](const QString& text) { OpenList(text.trimmed()); });
}

void FilteringBox::SetUpList() {
    auto* list = new QListView;
    list->setFrameStyle(QFrame::Box | QFrame::Plain);
    list->setMouseTracking(true);
    connect(list, &QListView::entered, list, &QListView::setCurrentIndex);
    m_completer->setPopup(list);
    SetUp(*list);
    m_completer->setWidget(this);
    m_completer->setCompletionRole(Qt::DisplayRole);
    m_completer->setFilterMode(Qt::MatchContains);
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->setMaxVisibleItems(maxVisibleItems());
    m_completer->setWrapAround(false);
    connect(m_completer, qOverload<const QModelIndex&>(&QCompleter::activated), this,
            [this](const QModelIndex& match) { Choose(match); });
    list->installEventFilter(this);
    installEventFilter(this);
}

QAbstractItemView* FilteringBox::List() const { return m_completer->popup(); }

void FilteringBox::showPopup() {
    ShowChoice();
    OpenList(QString());
}

void FilteringBox::hidePopup() { List()->hide(); }

void FilteringBox::OpenList(const QString& filter) {
    QAbstractItemView* list = List();
    const int width = list->isVisible() ? list->width() : ListWidth();
    list->setFont(font());
    SetFrameColor(*list);
    m_completer->setCompletionPrefix(filter);
    const QAbstractItemModel& matches = *m_completer->completionModel();
    list->setMaximumHeight(ListHeight(matches.rowCount()));
    m_completer->complete(QRect(0, 0, width, height()));
    const int top = mapToGlobal(QPoint()).y();
    if (list->y() < top) list->move(list->x(), top - list->height() + 1);
    int row = currentIndex();
    if (!filter.isEmpty()) row = matches.rowCount() > 1 && matches.index(0, 0).data(Qt::UserRole).toInt() == 0 ? 1 : 0;
    list->setCurrentIndex(matches.index(row, 0));
    list->scrollTo(list->currentIndex(), QAbstractItemView::PositionAtCenter);
}

bool FilteringBox::IsTyping() const { return currentText() != itemText(currentIndex()); }

void FilteringBox::Choose(const QModelIndex& match) {
    if (!match.isValid()) return ShowChoice();
    const auto* matches = qobject_cast<const QAbstractProxyModel*>(m_completer->completionModel());
    Choose(matches->mapToSource(match).row());
}

void FilteringBox::Choose(int index) {
    const QPointer<FilteringBox> self(this);
    m_hasDroppedText = false;
    setCurrentIndex(index);
    if (!self) return;
    ShowChoice();
    emit activated(index);
}

void FilteringBox::EndTyping() {
    if (!IsTyping()) return;
    const QModelIndexList same =
        model()->match(model()->index(0, 0), Qt::DisplayRole, currentText().trimmed(), 2, Qt::MatchFixedString);
    if (same.size() == 1 && same.front().row() != currentIndex()) return Choose(same.front().row());
    m_hasDroppedText = same.size() != 1;
    ShowChoice();
}

bool FilteringBox::TakeDroppedText() {
    const QPointer<FilteringBox> self(this);
    EndTyping();
    return self && std::exchange(m_hasDroppedText, false);
}

void FilteringBox::ShowChoice() {
    setEditText(itemText(currentIndex()));
    StartOver();
}

// Selected from its end, so that the start of a long text is visible.
void FilteringBox::StartOver() {
    hidePopup();
    const int length = static_cast<int>(currentText().size());
    lineEdit()->setSelection(length, -length);
    m_completer->setCompletionPrefix(QString());
}

bool FilteringBox::ShowsSelectedText() const { return hasFocus() && m_byKeyboard; }

// A QComboBox moves its edit at times. QLineEdit rounds up where it centers its text; painting rounds down.
void FilteringBox::ShowEdit() {
    lineEdit()->setGeometry(TextRect().adjusted(-EditMargin, 0, EditMargin, -1));
    lineEdit()->setVisible(hasFocus() && (IsTyping() || lineEdit()->selectedText() != currentText()));
    update();
}

void FilteringBox::resizeEvent(QResizeEvent* event) {
    DropdownBox::resizeEvent(event);
    ShowEdit();
}

void FilteringBox::focusInEvent(QFocusEvent* event) {
    DropdownBox::focusInEvent(event);
    if (!IsTemporary(*event)) {
        m_hasDroppedText = false;
        m_byKeyboard = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
        StartOver();
    } else if (event->reason() == Qt::ActiveWindowFocusReason && !IsTyping()) {
        StartOver();  // it may have got the focus behind a message
    }
    ShowEdit();
}

void FilteringBox::focusOutEvent(QFocusEvent* event) {
    const QPointer<FilteringBox> self(this);
    if (!IsTemporary(*event)) EndTyping();
    if (!self) return;
    // With the keyboard, the user sees the choice again before anything else happens.
    if (event->reason() != Qt::MouseFocusReason) m_hasDroppedText = false;
    const QSignalBlocker quiet(lineEdit());  // a QComboBox chooses an entry when its edit is left
    DropdownBox::focusOutEvent(event);
    if (!IsTemporary(*event)) lineEdit()->hide();
}

void FilteringBox::keyPressEvent(QKeyEvent* event) {
    m_byKeyboard = true;
    update();
    if (!TakeKey(event->key())) DropdownBox::keyPressEvent(event);
}

bool FilteringBox::TakeKey(int key) {
    const bool open = List()->isVisible();
    if (!open && !IsTyping()) return false;
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (open)
            Choose(List()->currentIndex());
        else
            TakeDroppedText();
        return true;
    case Qt::Key_Escape: ShowChoice(); return true;
    case Qt::Key_F4: hidePopup(); return open;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: return !open;  // the neighbors of the choice have nothing to do with the text
    default: return false;
    }
}

void FilteringBox::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    m_byKeyboard = false;
    showPopup();
}

// A list that gets the focus makes its first entry the current one without highlighting it, and an arrow key would move
// on from there. A press on the field closes the list and does not open it again. QCompleter drops a loss of the focus
// while the list is open.
bool FilteringBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched == this && event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
        hidePopup();
    if (watched == List() && event->type() == QEvent::KeyPress && !List()->selectionModel()->hasSelection())
        List()->setCurrentIndex(QModelIndex());
    if (watched == List() && event->type() == QEvent::MouseButtonPress) {
        const QPoint at = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
        List()->setAttribute(Qt::WA_NoMouseReplay, rect().contains(mapFromGlobal(at)));
    }
    return DropdownBox::eventFilter(watched, event);
}

}  // namespace quellbrook
