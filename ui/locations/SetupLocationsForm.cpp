#include "ui/locations/SetupLocationsForm.h"

#include "base/Screen.h"
#include "ui/common/FormLoop.h"
#include "ui/locations/SetupLocationsWizard.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"

#include <QCoreApplication>
#include <QPointer>
#include <QScreen>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr float Inset = 480;
// Pixels.
constexpr QSize PreferredSize(1080, 720), SmallestSize(640, 520);
constexpr int FrameAllowance = 40;

// Owns the form, which others may destroy first.
class FormResult : public SetupWizard {
public:
    explicit FormResult(frmSetupLocationsWizard* form) : m_form(form) {}
    ~FormResult() override { delete m_form; }
    FormResult(const FormResult&) = delete;
    FormResult& operator=(const FormResult&) = delete;

    bool Completed() const override { return m_form && m_form->Completed(); }

private:
    const QPointer<frmSetupLocationsWizard> m_form;
};

}  // namespace

frmSetupLocationsWizard::frmSetupLocationsWizard(QWidget* parent)
    : ModuleForm(parent), m_wizard(new SetupLocationsWizard(this)) {
    setObjectName("frmSetupLocationsWizard");
    setWindowFlags(Qt::Window);
    setWindowTitle("Quellbrook - Categorize Storage Locations");
    m_wizard->setObjectName("wizard");
    m_onCompleted = m_wizard->Completed.connect([this] { wizard_Completed(); });
    FitScreen();
    QCoreApplication::instance()->installEventFilter(this);
}

QRect frmSetupLocationsWizard::GeometryOn(const QRect& available) {
    const QSize usable = available.size() - QSize(FrameAllowance, FrameAllowance);
    QRect form(QPoint(), PreferredSize.boundedTo(usable).expandedTo(SmallestSize));
    form.moveCenter(available.center() - QPoint(0, FrameAllowance / 2));
    form.moveTo(std::max(form.left(), available.left()), std::max(form.top(), available.top()));
    return form;
}

void frmSetupLocationsWizard::FitScreen() {
    const QRect form = GeometryOn(screen()->availableGeometry());
    setMinimumSize(SmallestSize);
    resize(form.size());
    move(form.topLeft());
}

void frmSetupLocationsWizard::OnLoad() { GetDialogs().SetParent(std::make_shared<WindowReference>(this)); }

void frmSetupLocationsWizard::OnCancel() {
    const QPointer<QWidget> self(this);
    const int32_t answer = ShowMessage(
        "You won't be able to use Quellbrook until you finish categorizing all of your existing storage locations."
        "\r\n\r\n"
        "Are you sure you want to exit now?",
        MessageStyle::YesNoQuestion, "Exit Now?");
    if (self && answer != MessageAnswer::No) done(Rejected);
}

void frmSetupLocationsWizard::wizard_Completed() {
    m_completed = true;
    done(Accepted);
}

// An application that quits closes every window. This one then closes without a question.
bool frmSetupLocationsWizard::eventFilter(QObject* watched, QEvent* event) {
    Guard([&] {
        if (event->type() == QEvent::Quit && isVisible()) done(Rejected);
    });
    return ModuleForm::eventFilter(watched, event);
}

void frmSetupLocationsWizard::resizeEvent(QResizeEvent* event) {
    ModuleForm::resizeEvent(event);
    GuardSilently(
        [this] { m_wizard->Move(Inset, Inset, ToTwips(width()) - 2 * Inset, ToTwips(height()) - 2 * Inset); });
}

std::unique_ptr<SetupWizard> WizardScreen::RunSetupWizard() {
    auto* form = new frmSetupLocationsWizard;
    auto result = std::make_unique<FormResult>(form);
    form->EnsureLoaded();
    RunUntilClosed(*form);
    return result;
}

}  // namespace quellbrook
