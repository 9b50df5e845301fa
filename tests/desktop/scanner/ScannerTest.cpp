#include "tests/desktop/scanner/ScannerTest.h"

#include "core/Actions.h"
#include "tests/support/ui/Widgets.h"
#include "ui/explorer/EvidenceExplorer.h"
#include "ui/platform/MousePointer.h"
#include "ui/platform/WidgetMessageHook.h"
#include "ui/platform/WidgetTimer.h"

#include <QClipboard>
#include <QMenuBar>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace quellbrook::testing {

namespace {

constexpr int limit = 10'000;  // milliseconds
const QString kept = QStringLiteral("kept");

}  // namespace

ScannerTest::ScannerTest() {
    m_environment->clock = &m_runningClock;
    m_environment->makeTimer = [] { return std::make_unique<WidgetTimer>(); };
    m_environment->makeMessageHook = MakeWidgetMessageHook;
    m_window.setWindowTitle("scanner");
    m_window.resize(1000, 700);
    m_menu = m_window.menuBar()->addMenu("&File");
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    m_edit = new QLineEdit(kept);
    m_edit->setAccessibleName("field");
    layout->addWidget(m_edit);
    layout->addStretch();
    m_window.setCentralWidget(content);
    m_windowKeys = std::make_unique<KeyWatch>();
    QGuiApplication::clipboard()->setText(kept);
    Activate(m_window);
    m_edit->setFocus();
    m_edit->selectAll();
}

ScannerTest::~ScannerTest() {
    m_windowKeys.reset();
    delete m_explorer;
    m_window.close();
    ServeEvents();
    SetMousePointer(MousePointer::Default);
}

void ScannerTest::ShowExplorer() {
    m_database.AddLocation("Shelf A", StorageLocationTypes::Internal);
    HostLocationData::Discard();
    m_explorer = new EvidenceExplorer(m_window.centralWidget());
    m_explorer->setGeometry(0, 60, 1000, 600);
    GetActions().NavigateTo(ViewNames::Explorer, nullptr);
    m_explorer->show();
    m_windowKeys = std::make_unique<KeyWatch>();
    Listen(*Find<BarcodeListenerControl>(*m_explorer, "itemBarcodeListener"));
    m_edit->setFocus();
    m_edit->selectAll();
}

void ScannerTest::Listen(BarcodeListenerControl& listener) {
    m_listeners.push_back(&listener.Listener());
    listener.BarcodeScanned().connect(
        [this](int32_t type, const std::string& data) { m_scans.emplace_back(type, data); });
}

bool ScannerTest::Until(const std::function<bool()>& condition) {
    QTimer waking;
    waking.start(5);
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.hasExpired(limit)) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void ScannerTest::Pause(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

void ScannerTest::Activate(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
    EXPECT_TRUE(Until([&window] { return window.isActiveWindow(); })) << "The window did not become the active one.";
}

void ScannerTest::AwaitKeys() {
    const int before = m_windowKeys->Releases(Qt::Key_F12);
    m_keyboard.Press("F12");
    EXPECT_TRUE(Until([&] { return m_windowKeys->Releases(Qt::Key_F12) > before; })) << "The keys did not come.";
    EXPECT_TRUE(Until([this] {
        return std::all_of(m_listeners.begin(), m_listeners.end(),
                           [](const BarcodeListener* listener) { return listener->Waiting() == 0; });
    })) << "A scan was not delivered.";
}

void ScannerTest::ScanAndAwait(const QString& text) {
    m_keyboard.Scan(text);
    AwaitKeys();
}

void ScannerTest::TypeByHand(const QString& text) {
    Pause(gap);
    m_keyboard.Type(text);
    AwaitKeys();
}

void ScannerTest::ExpectNothingTyped() const {
    EXPECT_EQ(m_edit->text(), kept);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), kept);
}

int CountOf(int whole) { return qEnvironmentVariable("QUELLBROOK_LONG") == "1" ? whole : whole / 10; }

}  // namespace quellbrook::testing
