#include "input/BarcodeListener.h"

#include "base/Clock.h"
#include "base/Text.h"

#include <algorithm>

namespace quellbrook {

namespace {

constexpr uint32_t StartCharacter = 2, EndCharacter = 3;
constexpr uint32_t AltKey = 18;
constexpr double RestPeriod = 0.1;  // seconds
constexpr int DeliveryDelay = 1;    // milliseconds

// 32 bits, as the rest period requires: late in the day, the resolution is about 8 milliseconds.
float SecondsSinceMidnight() {
    const DateTime::Parts now = GetClock().Now().ToParts();
    const int milliseconds = ((now.hour * 60 + now.minute) * 60 + now.second) * 1000 + now.millisecond;
    return static_cast<float>(milliseconds / 1000.0);
}

void Cancel(KeyMessage& message) { message.number = KeyMessageNumber::Cancelled; }

bool Holds(const std::function<bool()>& question) {
    try {
        return question();
    } catch (...) {
        return false;
    }
}

size_t LengthOfFirstCharacter(const std::string& text) {
    size_t length = text.empty() ? 0 : 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) ++length;
    return length;
}

std::vector<const BarcodeListener*>& All() {
    static std::vector<const BarcodeListener*> all;
    return all;
}

int32_t TypeOf(const std::string& letter) {
    const std::string folded = FoldCase(letter);
    if (folded == "l") return BarcodeType::Location;
    if (folded == "p") return BarcodeType::Property;
    if (folded == "v") return BarcodeType::Vehicle;
    return BarcodeType::Unknown;
}

}  // namespace

BarcodeListener::BarcodeListener(Surroundings surroundings) : m_surroundings(std::move(surroundings)) {
    All().push_back(this);
}

BarcodeListener::~BarcodeListener() { std::erase(All(), this); }

bool BarcodeListener::IsScanUnderWay() {
    return std::any_of(All().begin(), All().end(), [](const BarcodeListener* each) {
        return each->m_isScanning && Holds(each->m_surroundings.isListening);
    });
}

void BarcodeListener::Shown() {
    if (m_messageHook) return;
    m_timer = MakeTimer();
    m_timer->Elapsed = [this] { Timer_Elapsed(); };
    m_messageHook = MakeMessageHook();
    m_messageHook->OnMessage = [this](KeyMessage& message) { MessageHook_OnMessage(message); };
}

void BarcodeListener::MessageHook_OnMessage(KeyMessage& message) {
    using namespace KeyMessageNumber;
    switch (message.number) {
    case KeyDown:
    case SysKeyDown: return OnKeyDown(message);
    case KeyUp:
    case SysKeyUp: return OnKeyUp(message);
    case Char:
    case SysChar: return OnCharacter(message);
    default: return;
    }
}

void BarcodeListener::OnKeyDown(KeyMessage& message) const {
    if (SecondsSinceMidnight() - m_lastScanEnd < RestPeriod) Cancel(message);
}

// Let the release of Alt through, since the host's menu bar needs it.
void BarcodeListener::OnKeyUp(KeyMessage& message) const {
    if (m_isScanning && message.wParam != AltKey && Holds(m_surroundings.isListening)) Cancel(message);
}

void BarcodeListener::OnCharacter(KeyMessage& message) {
    if (!Holds(m_surroundings.isListening)) return;
    if (message.wParam == StartCharacter) {
        m_lastScanEnd = 0;
        m_isScanning = true;
        m_hasEnded = false;
        m_scanBuffer.clear();
        ScanStarted();
    } else if (!m_isScanning) {
        return;
    } else if (message.wParam == EndCharacter) {
        EndScan();
    } else {
        AppendUtf8(m_scanBuffer, message.wParam);
    }
    Cancel(message);
}

void BarcodeListener::DropUnfinishedScan() {
    if (!m_hasEnded) m_isScanning = false;
}

// Until the timer has fired, all characters belong to the scan.
void BarcodeListener::EndScan() {
    m_hasEnded = true;
    m_lastScanEnd = SecondsSinceMidnight();
    m_scanQueue.push_back(m_scanBuffer);
    m_timer->SetInterval(DeliveryDelay);
    m_timer->SetSingleShot(true);
    m_timer->Start();
}

void BarcodeListener::Timer_Elapsed() {
    if (m_scanQueue.empty()) return;
    m_isScanning = false;
    const std::string text = std::move(m_scanQueue.back());
    m_scanQueue.pop_back();
    if (!Holds(m_surroundings.isWindowActive)) return;
    const size_t letter = LengthOfFirstCharacter(text);
    BarcodeScanned(TypeOf(text.substr(0, letter)), text.substr(letter));
}

}  // namespace quellbrook
