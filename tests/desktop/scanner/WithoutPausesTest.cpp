#include "tests/desktop/scanner/ListenerRecord.h"
#include "tests/desktop/scanner/ScannerTest.h"
#include "tests/support/BarcodeListenerModel.h"
#include "ui/controls/View.h"

#include <gmock/gmock.h>

#include <random>

namespace quellbrook::testing {
namespace {

class PlainView : public View {
public:
    using View::View;
    std::string TypeName() const override { return "PlainView"; }
};

using Entry = ListenerRecord::Entry;

// Keys that arrive faster than scans are delivered. The result depends on the timing of events and timers, so
// everything is recorded and compared with the model.
class WithoutPausesTest : public ScannerTest {
protected:
    WithoutPausesTest() : m_view(m_window.centralWidget()), m_listener(&m_view), m_record(m_listener) {
        Listen(m_listener);
        m_view.show();
        m_windowKeys = std::make_unique<KeyWatch>();
        m_edit->clear();
    }

    void AwaitLastKey() {
        m_keyboard.Press("F12");
        EXPECT_TRUE(Until([this] { return m_windowKeys->Releases(Qt::Key_F12) == 1; })) << "The keys did not come.";
        EXPECT_TRUE(Until([this] { return !m_record.IsFiringDue(); })) << "The last scan was not delivered.";
    }

    // The first entry in which the listener and the model differ; empty if there is none.
    std::string FirstDifference() const {
        BarcodeListenerModel model;
        for (size_t at = 0; at < m_record.Entries().size(); ++at) {
            const Entry& entry = m_record.Entries()[at];
            const bool same = entry.isFiring ? model.OnFiring(entry.isWindowActive) == entry.raised
                                             : Passes(model, entry) == entry.passed && !entry.raised;
            if (!same || model.Buffer() != entry.buffer || model.Waiting() != entry.waiting)
                return "entry " + std::to_string(at) + ", message " + std::to_string(entry.message.number) + ", " +
                       std::to_string(entry.message.wParam) + ", buffer '" + entry.buffer + "', waiting " +
                       std::to_string(entry.waiting);
        }
        return "";
    }

    static bool Passes(BarcodeListenerModel& model, const Entry& entry) {
        const float seconds = entry.clock ? BarcodeListenerModel::SecondsOf(*entry.clock) : -1;
        return model.OnMessage(entry.message, entry.isListening, seconds);
    }

    // The characters of key presses without a canceled message.
    QString PassedText() const {
        QString text;
        bool isDownPassed = false;
        for (const Entry& entry : m_record.Entries()) {
            if (entry.message.number == KeyMessageNumber::KeyDown) isDownPassed = entry.passed;
            const bool isPassed = entry.message.number == KeyMessageNumber::Char && entry.passed && isDownPassed;
            if (isPassed && entry.message.wParam >= ' ') text += QChar(static_cast<char16_t>(entry.message.wParam));
        }
        return text;
    }

    template <typename Condition>
    size_t CountIf(Condition condition) const {
        const auto& entries = m_record.Entries();
        return static_cast<size_t>(std::count_if(entries.begin(), entries.end(), condition));
    }

    PlainView m_view;
    BarcodeListenerControl m_listener;
    ListenerRecord m_record;
};

TEST_F(WithoutPausesTest, ScansInSuccessionMatchTheModel) {
    const int scans = CountOf(1000);
    for (int scan = 0; scan < scans; ++scan) m_keyboard.Scan("P" + QString::number(1000 + scan));
    AwaitLastKey();
    EXPECT_EQ(FirstDifference(), "");
    EXPECT_EQ(m_edit->text(), PassedText());
    EXPECT_EQ(CountIf([](const Entry& entry) { return !entry.isFiring && entry.message.wParam == 3; }),
              static_cast<size_t>(scans));
    EXPECT_EQ(CountIf([](const Entry& entry) { return entry.raised.has_value(); }), m_scans.size());
    EXPECT_FALSE(m_scans.empty());
}

TEST_F(WithoutPausesTest, ScansDuringABusyPeriodMatchTheModel) {
    for (int round = 0; round < 5; ++round) {
        for (int scan = 0; scan < 4; ++scan) m_keyboard.Scan("P" + QString::number(10 * round + scan));
        m_keyboard.Finish();
        Pause(gap);
    }
    AwaitLastKey();
    EXPECT_EQ(FirstDifference(), "");
    EXPECT_GT(CountIf([](const Entry& entry) { return entry.isFiring && entry.waiting > 0; }), 0u)
        << "two ends before a firing";
    EXPECT_EQ(m_edit->text(), PassedText());
}

TEST_F(WithoutPausesTest, RandomKeysMatchTheModel) {
    std::mt19937 random(20261121);
    for (int order = 0; order < CountOf(3000); ++order) {
        switch (random() % 6) {
        case 0: m_keyboard.Press("ctrl+b"); break;
        case 1: m_keyboard.Press("ctrl+c"); break;
        case 2: m_keyboard.Press("Left"); break;
        case 3: m_keyboard.Press("Alt_L"); break;
        default: m_keyboard.Type(QString::number(random() % 100'000)); break;
        }
        if (order % 50 == 0) Pause(gap);
    }
    AwaitLastKey();
    EXPECT_EQ(FirstDifference(), "");
    EXPECT_GT(CountIf([](const Entry& entry) { return entry.isFiring; }), 0u);
    EXPECT_GT(CountIf([](const Entry& entry) { return !entry.isFiring && !entry.passed; }), 0u);
    EXPECT_GT(CountIf([](const Entry& entry) { return entry.passed; }), 0u);
}

}  // namespace
}  // namespace quellbrook::testing
