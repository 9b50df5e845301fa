#pragma once

#include "base/Screen.h"

#include <deque>
#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quellbrook::testing {

// One run of the categorization wizard: what happens while its form is open, and how the user leaves it.
struct WizardScript {
    bool completed = true;
    std::function<void()> whileOpen = {};
};

// A screen that records what is shown and answers from a list. Messages with the OK button alone need no answer. A
// question without an answer or a default fails the test and is answered with Cancel. A wizard without a script fails
// the test.
class RecordingScreen : public Screen {
public:
    struct Message {
        std::string prompt;
        int32_t buttons;
        std::string title;

        bool operator==(const Message&) const = default;
    };
    struct PlainMessage {
        std::string text;
        std::string title;

        bool operator==(const PlainMessage&) const = default;
    };

    // Sets the answer to the next question that has none yet.
    void AnswerNext(int32_t answer) { m_answers.push_back(answer); }
    // Sets the answer to all further questions.
    void SetDefaultAnswer(std::optional<int32_t> answer) { m_defaultAnswer = answer; }
    bool HasAnswersLeft() const { return !m_answers.empty(); }

    // Runs while a message, or a plain one, is open: simulates the user or a timer.
    std::function<void(const Message&)> WhileMessageOpen;
    std::function<void(const PlainMessage&)> WhilePlainMessageOpen;

    void AddWizard(WizardScript script) { m_wizards.push_back(std::move(script)); }
    bool HasWizardsLeft() const { return !m_wizards.empty(); }

    void SetTwipsPerPixelY(double value) { m_twipsPerPixelY = value; }
    void SetOpenFormCount(int32_t count) { m_openFormCount = count; }

    const std::vector<Message>& Messages() const { return m_messages; }
    const std::vector<PlainMessage>& PlainMessages() const { return m_plainMessages; }
    // Returns the messages so far and starts a new record.
    std::vector<Message> TakeMessages();
    std::vector<PlainMessage> TakePlainMessages();
    const ObjectRef& DialogParent() const { return m_dialogParent; }
    int WizardsShown() const { return m_wizardsShown; }
    int LivingWizards() const { return m_livingWizards; }

    int32_t ShowMessage(const std::string& prompt, int32_t buttons, const std::string& title) override;
    void ShowPlainMessage(const std::string& text, const std::string& title) override;
    void SetDialogParent(ObjectRef window) override { m_dialogParent = std::move(window); }
    std::unique_ptr<SetupWizard> RunSetupWizard() override;
    double TwipsPerPixelY() const override { return m_twipsPerPixelY; }
    int32_t OpenFormCount() const override { return m_openFormCount; }

private:
    class Wizard;

    int32_t Answer(const Message& message);

    std::deque<int32_t> m_answers;
    std::optional<int32_t> m_defaultAnswer;
    std::deque<WizardScript> m_wizards;
    std::vector<Message> m_messages;
    std::vector<PlainMessage> m_plainMessages;
    ObjectRef m_dialogParent;
    double m_twipsPerPixelY = 15;
    int32_t m_openFormCount = 0;
    int m_wizardsShown = 0;
    int m_livingWizards = 0;
};

// A record of this message alone, to compare with Messages() or TakeMessages().
std::vector<RecordingScreen::Message> OneMessage(const std::string& prompt, int32_t buttons, const std::string& title);

// For gtest's output.
std::ostream& operator<<(std::ostream& out, const RecordingScreen::Message& message);
std::ostream& operator<<(std::ostream& out, const RecordingScreen::PlainMessage& message);

}  // namespace quellbrook::testing
