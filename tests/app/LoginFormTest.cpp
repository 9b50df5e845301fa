#include "app/LoginForm.h"
#include "tests/support/ui/Widgets.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

const std::vector<SampleAccount> accounts = {{"custodian", "lantern", "everything"},
                                             {"auditor", "ledger", "view only"}};

struct Submission {
    QString username;
    QString password;
    int times = 0;
};

void Listen(LoginForm& form, Submission& submission) {
    QObject::connect(&form, &LoginForm::Submitted, [&submission](const QString& username, const QString& password) {
        submission = {username, password, submission.times + 1};
    });
}

}  // namespace

TEST(LoginForm, ClickingTheButtonSubmitsTheInput) {
    LoginForm form("Harlow Bay", std::nullopt, accounts);
    Submission submission;
    Listen(form, submission);
    ShowActive(form);
    form.Restart();
    Type(Find(form, "username"), " clerk ");
    Type(Find(form, "password"), " pencil ");
    Click(Find(form, "logIn"));
    EXPECT_EQ(submission.times, 1);
    EXPECT_EQ(submission.username, "clerk");
    EXPECT_EQ(submission.password, " pencil ") << "blanks may belong to a password";
}

TEST(LoginForm, EnterSubmitsFromEitherField) {
    LoginForm form("Harlow Bay", std::nullopt, accounts);
    Submission submission;
    Listen(form, submission);
    ShowActive(form);
    Type(Find(form, "password"), "pencil");
    Press(Find(form, "username"), Qt::Key_Return);
    Press(Find(form, "password"), Qt::Key_Enter);
    EXPECT_EQ(submission.times, 2);
}

TEST(LoginForm, EnterWithoutAPasswordMovesToThePassword) {
    LoginForm form("Harlow Bay", std::nullopt, accounts);
    Submission submission;
    Listen(form, submission);
    ShowActive(form);
    form.Restart();
    Type(Find(form, "username"), "clerk");
    Press(Find(form, "username"), Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), Find(form, "password"));
    Press(Find(form, "password"), Qt::Key_Return);
    Click(Find(form, "logIn"));
    EXPECT_EQ(QApplication::focusWidget(), Find(form, "password"));
    EXPECT_EQ(submission.times, 0);
}

TEST(LoginForm, ThePasswordIsNotShown) {
    LoginForm form("Harlow Bay", std::nullopt, accounts);
    EXPECT_EQ(Find<QLineEdit>(form, "password")->echoMode(), QLineEdit::Password);
}

TEST(LoginForm, AGivenUserEntersOnlyThePassword) {
    LoginForm form("Harlow Bay", QString("clerk"), accounts);
    Submission submission;
    Listen(form, submission);
    ShowActive(form);
    form.Restart();
    EXPECT_EQ(form.findChild<QLineEdit*>("username"), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), Find(form, "password"));
    Type(Find(form, "password"), "pencil");
    Press(Find(form, "password"), Qt::Key_Return);
    EXPECT_EQ(submission.username, "clerk");
    EXPECT_EQ(submission.password, "pencil");
}

TEST(LoginForm, AFailureIsShownAndClearsThePassword) {
    LoginForm form("Harlow Bay", std::nullopt, accounts);
    ShowActive(form);
    Type(Find(form, "password"), "wrong");
    form.ShowFailure("Incorrect user name or password.");
    auto* failure = Find<QLabel>(form, "loginError");
    EXPECT_TRUE(failure->isVisible());
    EXPECT_EQ(failure->text(), "Incorrect user name or password.");
    EXPECT_EQ(Find<QLineEdit>(form, "password")->text(), "");
    EXPECT_EQ(QApplication::focusWidget(), Find(form, "password"));
    form.Restart();
    EXPECT_FALSE(failure->isVisible());
}

TEST(LoginForm, LogInStaysTheDefaultAfterItHadTheFocus) {
    LoginForm form("Harlow Bay", std::nullopt, accounts);
    ShowActive(form);
    auto* button = Find<QPushButton>(form, "logIn");
    button->setFocus();
    form.ShowFailure("Incorrect user name or password.");
    EXPECT_FALSE(button->hasFocus());
    EXPECT_TRUE(button->isDefault());
}

TEST(LoginForm, ALongMessageLeavesTheFieldsTheirHeight) {
    LoginForm form("Harlow Bay", std::nullopt, accounts);
    form.resize(800, 600);
    ShowActive(form);
    const int height = Find(form, "password")->height();
    form.ShowFailure("Too many logins have failed. Wait 1 second and try again. Then ask your administrator.");
    ServeEvents();
    const auto* failure = Find<QLabel>(form, "loginError");
    EXPECT_GE(failure->height(), failure->heightForWidth(failure->width()));
    EXPECT_GT(failure->height(), 2 * failure->fontMetrics().height() - 4);
    EXPECT_EQ(Find(form, "password")->height(), height);
    EXPECT_EQ(Find(form, "logIn")->height(), height);
}

TEST(LoginForm, ShowsExactlyTheGivenAccounts) {
    LoginForm form("Harlow Bay", std::nullopt, accounts);
    EXPECT_EQ(Find<QLabel>(form, "account0")->text(), "custodian");
    EXPECT_EQ(Find<QLabel>(form, "account1")->text(), "auditor");
    LoginForm plain("Harlow Bay", std::nullopt, {});
    for (const QLabel* label : plain.findChildren<QLabel*>()) EXPECT_FALSE(label->objectName().startsWith("account"));
}

TEST(LoginForm, TextsAreNotParsedAsMarkup) {
    LoginForm form("<b>Bay</b>", QString("<i>clerk</i>"), {});
    for (const QLabel* label : form.findChildren<QLabel*>()) EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

TEST(LoginForm, FieldsHaveAccessibleNames) {
    LoginForm form("Harlow Bay", std::nullopt, {});
    EXPECT_EQ(Find(form, "username")->accessibleName(), "User name");
    EXPECT_EQ(Find(form, "password")->accessibleName(), "Password");
}

}  // namespace quellbrook::testing
