#pragma once

#include "base/DateTime.h"
#include "base/MessageHook.h"
#include "base/Text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quellbrook::testing {

// A second, simple implementation of the barcode listener, for tests and fuzzers to compare with.
class BarcodeListenerModel {
public:
    using Scan = std::pair<int32_t, std::string>;  // the type, and the data after its letter

    // The time as the listener reads it: seconds since midnight in 32 bits.
    static float SecondsOf(DateTime time) {
        constexpr int64_t day = 24 * 60 * 60 * 1000;
        return static_cast<float>(static_cast<double>(time.milliseconds % day) / 1000.0);
    }

    // Whether the message is let through.
    bool OnMessage(const KeyMessage& message, bool isListening, float seconds) {
        using namespace KeyMessageNumber;
        if (message.number == KeyDown || message.number == SysKeyDown) return seconds - m_lastScanEnd >= 0.1;
        if (message.number == KeyUp || message.number == SysKeyUp)
            return !isListening || !m_isScanning || message.wParam == 18;
        const bool isCharacter = message.number == Char || message.number == SysChar;
        if (!isCharacter || !isListening) return true;
        if (message.wParam == 2) {
            m_lastScanEnd = 0;
            m_isScanning = true;
            m_buffer.clear();
            return false;
        }
        if (!m_isScanning) return true;
        if (message.wParam == 3) {
            m_lastScanEnd = seconds;
            m_waiting.push_back(m_buffer);
        } else {
            m_buffer.push_back(message.wParam);
        }
        return false;
    }

    // The events that are raised.
    std::optional<Scan> OnFiring(bool isWindowActive) {
        if (m_waiting.empty()) return std::nullopt;
        m_isScanning = false;
        const std::vector<uint32_t> text = m_waiting.back();
        m_waiting.pop_back();
        if (!isWindowActive) return std::nullopt;
        if (text.empty()) return Scan(0, "");
        return Scan(TypeOf(text.front()), ToUtf8({text.begin() + 1, text.end()}));
    }

    std::string Buffer() const { return ToUtf8(m_buffer); }
    size_t Waiting() const { return m_waiting.size(); }

private:
    static std::string ToUtf8(const std::vector<uint32_t>& characters) {
        std::string text;
        for (const uint32_t character : characters) AppendUtf8(text, character);
        return text;
    }

    static int32_t TypeOf(uint32_t letter) {
        switch (letter) {
        case 'L':
        case 'l': return 1;
        case 'P':
        case 'p': return 2;
        case 'V':
        case 'v': return 3;
        default: return 0;
        }
    }

    std::vector<uint32_t> m_buffer;
    std::vector<std::vector<uint32_t>> m_waiting;  // the newest last
    double m_lastScanEnd = 0;
    bool m_isScanning = false;
};

}  // namespace quellbrook::testing
