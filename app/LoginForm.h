#pragma once

#include "demo/sample/SampleDepartment.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;

namespace quellbrook {

// Asks for user and password, in the middle of its parent. Field, label and button names: "username", "password",
// "logIn", "loginError".
class LoginForm : public QWidget {
    Q_OBJECT

public:
    // With a user only the password is asked. The accounts are shown below the fields; an empty list shows none.
    LoginForm(const QString& agency, const std::optional<QString>& user, const std::vector<SampleAccount>& accounts,
              QWidget* parent = nullptr);

    // Empties the password and puts the focus where typing goes on.
    void Restart();
    void ShowFailure(const QString& sentence);

signals:
    void Submitted(const QString& username, const QString& password);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* MakeFields(const QString& agency);
    QWidget* MakeAccounts(const std::vector<SampleAccount>& accounts);
    void Submit();

    std::optional<QString> m_user;
    QLineEdit* m_username = nullptr;  // absent where the user is given
    QLineEdit* m_password = nullptr;
    QLabel* m_error = nullptr;
};

}  // namespace quellbrook
