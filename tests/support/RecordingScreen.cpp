#include "tests/support/RecordingScreen.h"

#include "base/Error.h"

#include <ostream>
#include <utility>

#include <gtest/gtest.h>

namespace quellbrook::testing {

class RecordingScreen::Wizard : public SetupWizard {
public:
    Wizard(int& living, bool completed) : m_living(living), m_completed(completed) { ++m_living; }
    ~Wizard() override { --m_living; }
    bool Completed() const override { return m_completed; }

private:
    int& m_living;
    const bool m_completed;
};

std::vector<RecordingScreen::Message> RecordingScreen::TakeMessages() { return std::exchange(m_messages, {}); }

std::vector<RecordingScreen::PlainMessage> RecordingScreen::TakePlainMessages() {
    return std::exchange(m_plainMessages, {});
}

int32_t RecordingScreen::ShowMessage(const std::string& prompt, int32_t buttons, const std::string& title) {
    const Message message{prompt, buttons, title};
    m_messages.push_back(message);
    if (WhileMessageOpen) WhileMessageOpen(message);
    return Answer(message);
}

int32_t RecordingScreen::Answer(const Message& message) {
    if ((message.buttons & 0xF) == 0) return MessageAnswer::Ok;
    if (!m_answers.empty()) {
        const int32_t answer = m_answers.front();
        m_answers.pop_front();
        return answer;
    }
    if (m_defaultAnswer) return *m_defaultAnswer;
    ADD_FAILURE() << "A question without an answer: " << message;
    return MessageAnswer::Cancel;
}

void RecordingScreen::ShowPlainMessage(const std::string& text, const std::string& title) {
    const PlainMessage message{text, title};
    m_plainMessages.push_back(message);
    if (WhilePlainMessageOpen) WhilePlainMessageOpen(message);
}

std::unique_ptr<SetupWizard> RecordingScreen::RunSetupWizard() {
    if (m_wizards.empty()) {
        ADD_FAILURE() << "A wizard ran that no script describes.";
        Raise(ErrorNumber::General, "RecordingScreen.RunSetupWizard", "There is no wizard.");
    }
    const WizardScript script = std::move(m_wizards.front());
    m_wizards.pop_front();
    ++m_wizardsShown;
    auto wizard = std::make_unique<Wizard>(m_livingWizards, script.completed);
    if (script.whileOpen) script.whileOpen();
    return wizard;
}

std::vector<RecordingScreen::Message> OneMessage(const std::string& prompt, int32_t buttons, const std::string& title) {
    return {{prompt, buttons, title}};
}

std::ostream& operator<<(std::ostream& out, const RecordingScreen::Message& message) {
    return out << '"' << message.title << "\" (" << message.buttons << "): \"" << message.prompt << '"';
}

std::ostream& operator<<(std::ostream& out, const RecordingScreen::PlainMessage& message) {
    return out << '"' << message.title << "\": \"" << message.text << '"';
}

}  // namespace quellbrook::testing
