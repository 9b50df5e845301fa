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

// Asks for the user name and the password. Object names: "username", "password", "logIn", "loginError".
class LoginForm : public QWidget {
    Q_OBJECT

public:
    // With a user, asks only for the password. The accounts are listed below the fields.
    LoginForm(const QString& agency, const std::optional<QString>& user, const std::vector<SampleAccount>& accounts,
              QWidget* parent = nullptr);

    // Clears the password and sets the focus to the field to fill in.
    void Restart();
    void ShowFailure(const QString& sentence);

signals:
    void Submitted(const QString& username, const QString& password);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* MakeFields(const QString& agency);
    QWidget* MakeAccounts(const std::vector<SampleAccount>& accounts);
    void Submit();

    std::optional<QString> m_user;
    QLineEdit* m_username = nullptr;  // null if the user is given
    QLineEdit* m_password = nullptr;
    QLabel* m_error = nullptr;
};

}  // namespace quellbrook
