#include "tests/support/RecordingScreen.h"

#include "base/Error.h"

#include <ostream>
#include <utility>

#include <gtest/gtest.h>

namespace quellbrook::testing {

class RecordingScreen::Wizard : public SetupWizard {
public:
    Wizard(RecordingScreen& screen, WizardScript script) : m_screen(screen), m_script(std::move(script)) {}

    void Show() override {
        m_visible = true;
        ++m_screen.m_wizardsShown;
        if (m_script.onShow) m_script.onShow();
        if (m_script.roundsVisible == 0) Close();
    }
    bool Visible() const override { return m_visible; }
    bool Completed() const override {
        EXPECT_FALSE(m_visible) << "The wizard was asked for its outcome while it was open.";
        return m_script.completed;
    }

    void PassRound() {
        if (m_visible && ++m_rounds >= m_script.roundsVisible) Close();
    }

private:
    void Close() {
        m_visible = false;
        if (m_script.onClose) m_script.onClose();
    }

    RecordingScreen& m_screen;
    WizardScript m_script;
    bool m_visible = false;
    int m_rounds = 0;
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
    ADD_FAILURE() << "A question that no answer was given for: " << message;
    return MessageAnswer::Cancel;
}

void RecordingScreen::ShowPlainMessage(const std::string& text, const std::string& title) {
    const PlainMessage message{text, title};
    m_plainMessages.push_back(message);
    if (WhilePlainMessageOpen) WhilePlainMessageOpen(message);
}

std::shared_ptr<SetupWizard> RecordingScreen::MakeSetupWizard() {
    if (m_wizards.empty()) {
        ADD_FAILURE() << "A wizard that no script foresees.";
        Raise(ErrorNumber::General, "RecordingScreen.MakeSetupWizard", "There is no wizard.");
    }
    auto wizard = std::make_shared<Wizard>(*this, std::move(m_wizards.front()));
    m_wizards.pop_front();
    m_madeWizards.push_back(wizard);
    return wizard;
}

void RecordingScreen::WaitForMessages() {
    ++m_roundsWaited;
    if (WhileWaiting) WhileWaiting();
    for (const auto& made : std::vector(m_madeWizards))
        if (const auto wizard = made.lock()) wizard->PassRound();
}

std::ostream& operator<<(std::ostream& out, const RecordingScreen::Message& message) {
    return out << '"' << message.title << "\" (" << message.buttons << "): \"" << message.prompt << '"';
}

std::ostream& operator<<(std::ostream& out, const RecordingScreen::PlainMessage& message) {
    return out << '"' << message.title << "\": \"" << message.text << '"';
}

}  // namespace quellbrook::testing
