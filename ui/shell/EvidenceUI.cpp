#include "ui/shell/EvidenceUI.h"

#include "base/Error.h"
#include "base/Screen.h"
#include "core/ActionTypes.h"
#include "core/Actions.h"
#include "host/TransferOutcome.h"
#include "ui/common/PropertyBag.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/FlatTabs.h"
#include "ui/controls/FlatTitleBar.h"
#include "ui/controls/GroupBox.h"
#include "ui/platform/Guard.h"
#include "ui/platform/MousePointer.h"
#include "ui/platform/TabOrder.h"
#include "ui/platform/Twips.h"
#include "ui/shell/InfoBar.h"
#include "ui/shell/Toast.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>
#include <string_view>
#include <utility>

namespace quellbrook {

namespace {

constexpr float TitleBarHeight = 600;

// Runs one step of a view change. Shows a message and returns false if it fails.
template <typename Step, typename Words>
bool Attempt(Step&& step, Words&& words, const char* title) {
    bool isDone = false;
    Guard(
        [&] {
            step();
            isDone = true;
        },
        [&](const Error& error) { ShowMessage(words(error), MessageStyle::Critical, title); });
    return isDone;
}

void ReportSwitchError(const std::string& name, const Error& error) {
    ShowMessage("Could not switch to view '" + name + "': " + error.Description(), MessageStyle::Critical,
                "View Show Error");
}

// Runs a step that shows a view. Adds the view's type to the error.
template <typename Step>
void AddingTypeName(const Control* view, Step&& step) {
    const std::string typeName = view ? view->TypeName() : "Nothing";
    try {
        step();
    } catch (...) {
        const Error error = CurrentError();
        Raise(error.Number(), "EvidenceUI.LoadView",
              "Error loading view of type '" + typeName + "': " + error.Description());
    }
}

void RaiseShowErrorOf(Control& control) {
    if (auto* view = qobject_cast<View*>(&control)) view->RaiseShowError();
}

QWidget* FirstFocusIn(Control& control) {
    auto* view = qobject_cast<View*>(&control);
    return view ? view->FirstFocus() : &control;
}

}  // namespace

// The shell's callback for the dispatcher.
class EvidenceUI::Callback : public DispatcherCallback {
public:
    explicit Callback(EvidenceUI* shell) : m_shell(shell) {}

    void Handle(const Action& action) override {
        if (m_shell) m_shell->Handle(action);
    }
    std::string CallbackTypeName() const override { return "EvidenceUI"; }

private:
    QPointer<EvidenceUI> m_shell;
};

EvidenceUI::EvidenceUI(const ShellViews& views, QWidget* parent)
    : View(parent), m_callback(std::make_shared<Callback>(this)) {
    setAccessibleName("Quellbrook");
    BuildFrame();
    BuildViews(views);
    m_infobar = new InfoBar(this);
    connect(m_infobar, &InfoBar::LosesFocus, this, &EvidenceUI::TakeFocusFromInfoBar);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { FollowFocus(now); });
    m_toastMessage = new Toast(this);
    m_border = new GroupBox(this);
    m_border->setObjectName("shpBorder");
    m_border->SetFramed(true);
    m_border->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_border->hide();
    m_controls.insert(m_controls.end(), {m_titleBar, m_content, m_infobar, m_toastMessage, m_viewHolder});
}

EvidenceUI::~EvidenceUI() {
    // The focus moves once more when the children are destroyed.
    disconnect(qApp, nullptr, this, nullptr);
    LeaveShow();
}

void EvidenceUI::BuildFrame() {
    m_titleBar = new FlatTitleBar(this);
    m_titleBar->setObjectName("TitleBar");
    m_titleBar->SetCaption("Quellbrook");
    m_titleBar->SetHeight(TitleBarHeight);
    m_titleBar->SetAlign(Alignment::Top);
    m_content = new GroupBox(this);
    m_content->setObjectName("content");
    m_content->SetTop(TitleBarHeight);
    m_viewHolder = new FlatTabs(this);
    m_viewHolder->setObjectName("viewHolder");
    m_viewHolder->hide();
}

void EvidenceUI::BuildViews(const ShellViews& views) {
    for (const ShellView& each : views) {
        FlatTabPage* page = m_viewHolder->AddTab(each.caption);
        page->setObjectName("viewHolder_Page");
        page->SetIndex(static_cast<int>(m_views.size()));
        Control* view = each.make(page);
        view->setObjectName(each.name);
        if (view->accessibleName().isEmpty()) view->setAccessibleName(each.caption);
        m_views.emplace_back(view);
        m_controls.emplace_back(view);
    }
}

void EvidenceUI::Shown() {
    const QPointer<EvidenceUI> self(this);
    const StoresRecord stores = GetStores();
    const bool isAfterGate = stores.View != m_viewStore;
    if (isAfterGate) Follow(stores);
    GetDispatcher()->Register(m_callback);
    repaint();
    const bool hasViewChanged = std::exchange(m_viewChangedWhileHidden, false);
    if (isAfterGate) return GetActions().NavigateTo(ViewNames::Explorer, nullptr);
    if (hasViewChanged) ChangeView();
    if (self) ShowCurrentView();
}

void EvidenceUI::Follow(const StoresRecord& stores) {
    m_loadingStore = stores.Loading;
    m_viewStore = stores.View;
    m_loadingSubscription = m_loadingStore->OnChange.connect([this] { LoadingStore_OnChange(); });
    m_viewSubscription = m_viewStore->OnChange.connect([this] { ViewStore_OnChange(); });
    m_infobar->Subscribe(stores);
}

// The next Shown() shows the view again, unless the view store has changed by then.
void EvidenceUI::Hidden() {
    GuardSilently([this] { GetDispatcher()->Unregister(m_callback.get()); });
    if (m_currentView) m_currentView->hide();
}

float EvidenceUI::ContentHeight() const { return ClientHeight() - m_content->Top() - m_infobar->Height(); }

void EvidenceUI::Layout() {
    if (!m_border) return;  // during construction
    m_border->Move(0, 0, Width(), Height());
    m_content->Move(0, m_content->Top(), ClientWidth(), ContentHeight());
    for (const QPointer<Control>& view : m_views)
        if (view && view->parentWidget() == m_content && view->IsShown()) FillContent(*view);
}

void EvidenceUI::FillContent(Control& view) { view.Move(0, 0, ClientWidth(), ContentHeight()); }

Control* EvidenceUI::FindControl(const std::string& name) const {
    const auto found = std::find_if(m_controls.begin(), m_controls.end(), [&name](const QPointer<Control>& control) {
        return control && control->Name() == name;
    });
    return found == m_controls.end() ? nullptr : found->data();
}

bool EvidenceUI::IsView(const Control* control) const {
    return std::find(m_views.begin(), m_views.end(), control) != m_views.end();
}

void EvidenceUI::LoadView(Control* view) {
    if (view && view == m_currentView && view->IsShown()) return;
    AddingTypeName(view, [&] { SwitchTo(view); });
}

void EvidenceUI::SwitchTo(Control* view) {
    if (!view) Raise(ErrorNumber::NullObject, "EvidenceUI.LoadView");
    if (!IsView(view)) Raise(ErrorNumber::TypeMismatch, "EvidenceUI.LoadView");
    const QPointer<EvidenceUI> self(this);
    if (m_currentView) {
        m_currentView->hide();
        repaint();
    }
    if (!Present(view)) return;
    TrySetFocus(view->Name() == ViewNames::Explorer ? LastFocusIn(*view) : FirstFocusIn(*view));
    if (!self) return;
    repaint();
    RaiseShowErrorOf(*view);
}

// Returns false if the shell is gone, since a view that is shown can open dialogs.
bool EvidenceUI::Present(Control* view) {
    const QPointer<EvidenceUI> self(this);
    // Set before the view is shown, so that the next view replaces it even if that fails.
    m_currentView = view;
    view->setParent(m_content);
    FillContent(*view);
    view->show();
    if (!self) return false;
    MoveFirstInTabOrder(m_content);
    return true;
}

// Shows the view that was hidden together with the shell. Leaves the focus to the host.
void EvidenceUI::ShowCurrentView() {
    if (!m_currentView || m_currentView->IsShown()) return;
    Control* view = m_currentView;
    Guard(
        [this, view] {
            AddingTypeName(view, [this, view] {
                if (Present(view)) RaiseShowErrorOf(*view);
            });
        },
        // Later, since a host that is just switching to the shell may not paint it before it has done so.
        [this, name = view->Name()](const Error& error) {
            QMetaObject::invokeMethod(
                this, [name, error] { Guard([&] { ReportSwitchError(name, error); }); }, Qt::QueuedConnection);
        });
}

void EvidenceUI::TakeFocusFromInfoBar() {
    if (m_currentView) TrySetFocus(LastFocusIn(*m_currentView));
}

void EvidenceUI::FollowFocus(QWidget* focused) {
    if (m_currentView && m_currentView->isAncestorOf(focused)) m_lastFocus[m_currentView] = focused;
}

// What had the focus in the view before, or what gets it first if that can't have it now.
QWidget* EvidenceUI::LastFocusIn(Control& view) const {
    const auto found = m_lastFocus.find(&view);
    QWidget* last = found == m_lastFocus.end() ? nullptr : found->second.data();
    return last && last->isVisible() && last->isEnabled() ? last : FirstFocusIn(view);
}

void EvidenceUI::ViewStore_OnChange() {
    if (isVisible())
        Guard([this] { ChangeView(); });
    else
        m_viewChangedWhileHidden = true;
}

void EvidenceUI::ChangeView() {
    const QPointer<EvidenceUI> self(this);
    const uint32_t change = ++m_changes;
    repaint();
    const std::string name = m_viewStore->ViewName();
    Control* view = FindControl(name);
    if (!view) {
        ShowMessage("Could not find view '" + name + "'", MessageStyle::Critical, "View Not Found");
        return;
    }
    const bool orderSet = Attempt([&] { view->SetTabIndex(0); },
                                  [&](const Error&) { return "Could not set TabIndex to 0 for view '" + name + "'"; },
                                  "View TabIndex Error");
    if (!orderSet) return;
    const bool loaded = Attempt(
        [&] {
            if (auto* appView = dynamic_cast<AppView*>(view)) appView->Show(m_viewStore->ViewParameters());
        },
        [&](const Error& error) { return "Could not load data for view '" + name + "': " + error.Description(); },
        "View Load Error");
    // A view that loads can run events. The shell may be gone then, or a later change may have shown its view.
    if (!self || change != m_changes) return;
    // The user has no means to leave the loading view, so even a view with what it showed before replaces it.
    if (!loaded && !(m_currentView && m_currentView->Name() == ViewNames::Loading)) return;
    Guard([&] { LoadView(view); }, [&](const Error& error) { ReportSwitchError(name, error); });
}

void EvidenceUI::LoadingStore_OnChange() {
    Guard([this] {
        const bool isLoading = m_loadingStore->IsLoading();
        SetMousePointer(isLoading ? MousePointer::Hourglass : MousePointer::Default);
        if (isLoading && isVisible()) LoadView(FindControl(ViewNames::Loading));
    });
}

void EvidenceUI::Handle(const Action& action) {
    Guard([this, &action] {
        if (action.ActionType == ActionTypes::CART_TRANSACTION_FAILED)
            ReportFailedTransfer(ToText(action.Payload));
        else if (action.ActionType == ActionTypes::NOTIFY_USER)
            m_toastMessage->Popup(ToText(action.Payload));
    });
}

void EvidenceUI::ReportFailedTransfer(const std::string& description) {
    NoteReported(description);
    if (std::string_view(description).starts_with(UnknownOutcomeText)) {
        // The items may have been moved.
        ShowMessage(description, MessageStyle::Critical, "Evidence transfer unconfirmed");
        return;
    }
    ShowMessage(
        "Could not complete evidence transfer. To keep your storage records consistent, nothing has been "
        "transferred.\r\n\r\n[" +
            description + "]",
        MessageStyle::Critical, "Evidence transfer failed!");
}

void EvidenceUI::SetBorderStyle(int borderStyle) {
    m_borderStyle = borderStyle;
    m_border->setVisible(borderStyle != 0);
}

void EvidenceUI::ReadProperties(const PropertyBag& bag) {
    GuardSilently([&] { SetBorderStyle(ToInt32(bag.ReadProperty("BorderStyle", 0))); });
}

void EvidenceUI::WriteProperties(PropertyBag& bag) const {
    GuardSilently([&] { bag.WriteProperty("BorderStyle", m_borderStyle, 0); });
}

void EvidenceUI::paintEvent(QPaintEvent*) {
    GuardPainting([this] { QPainter(this).fillRect(rect(), Theme::Get(Theme::Color::Window)); });
}

}  // namespace quellbrook
