#include "app/LoginForm.h"

#include "app/common/PlainLabels.h"
#include "app/common/ThemedSheet.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace quellbrook {

namespace {

constexpr int cardWidth = 380;

// Uses only palette roles, to fit the light and the dark theme.
const char* const sheet = R"css(
#card { background: palette(window); border: 1px solid palette(mid); border-radius: 2px; }
#accounts { background: palette(button); border: none; border-top: 1px solid palette(mid); }
)css";

QLineEdit* MakeField(const char* name, const QString& caption, QWidget* parent) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    field->setAccessibleName(caption);
    return field;
}

}  // namespace

LoginForm::LoginForm(const QString& agency, const std::optional<QString>& user,
                     const std::vector<SampleAccount>& accounts, QWidget* parent)
    : QWidget(parent), m_user(user) {
    SetThemedSheet(this, QString::fromLatin1(sheet));
    auto* card = new QFrame(this);
    card->setObjectName(QStringLiteral("card"));
    card->setFixedWidth(cardWidth);
    auto* column = new QVBoxLayout(card);
    column->setContentsMargins(1, 1, 1, 1);
    column->setSpacing(0);
    column->addWidget(MakeFields(agency));
    if (!accounts.empty()) column->addWidget(MakeAccounts(accounts));

    auto* rows = new QGridLayout(this);
    rows->setRowStretch(0, 2);
    rows->setRowStretch(2, 3);
    rows->addWidget(card, 1, 0, Qt::AlignHCenter);
}

QWidget* LoginForm::MakeFields(const QString& agency) {
    auto* fields = new QWidget;
    auto* column = new QVBoxLayout(fields);
    column->setContentsMargins(32, 28, 32, 28);
    column->setSpacing(4);
    column->addWidget(MakeLabel(tr("Quellbrook"), 20, QFont::DemiBold, fields));
    auto* subtitle = MakeLabel(agency, 13, QFont::Normal, fields);
    MakeQuiet(subtitle);
    column->addWidget(subtitle);
    column->addSpacing(16);
    if (m_user) {
        column->addWidget(MakeLabel(tr("Logging in as %1").arg(*m_user), 14, QFont::Normal, fields));
        column->addSpacing(8);
    } else {
        column->addWidget(MakeLabel(tr("User name"), 14, QFont::DemiBold, fields));
        m_username = MakeField("username", tr("User name"), fields);
        column->addWidget(m_username);
        column->addSpacing(12);
        connect(m_username, &QLineEdit::returnPressed, this, &LoginForm::Submit);
    }
    column->addWidget(MakeLabel(tr("Password"), 14, QFont::DemiBold, fields));
    m_password = MakeField("password", tr("Password"), fields);
    m_password->setEchoMode(QLineEdit::Password);
    column->addWidget(m_password);
    connect(m_password, &QLineEdit::returnPressed, this, &LoginForm::Submit);

    m_error = MakeLabel(QString(), 13, QFont::Normal, fields);
    m_error->setObjectName(QStringLiteral("loginError"));
    SetColor(m_error, FailureColor());
    m_error->hide();
    column->addSpacing(4);
    column->addWidget(m_error);
    column->addSpacing(12);

    auto* button = new QPushButton(tr("Log In"), fields);
    button->setObjectName(QStringLiteral("logIn"));
    button->setAutoDefault(false);  // otherwise it is no longer the default when it loses the focus
    button->setDefault(true);
    connect(button, &QPushButton::clicked, this, &LoginForm::Submit);
    column->addWidget(button);
    return fields;
}

QWidget* LoginForm::MakeAccounts(const std::vector<SampleAccount>& accounts) {
    auto* strip = new QFrame;
    strip->setObjectName(QStringLiteral("accounts"));
    auto* grid = new QGridLayout(strip);
    grid->setContentsMargins(32, 16, 32, 20);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(2, 1);
    const QString captions[] = {tr("User name"), tr("Password"), tr("May")};
    for (int column = 0; column < 3; ++column) {
        auto* caption = MakeLabel(captions[column], 12, QFont::DemiBold, strip);
        MakeQuiet(caption);
        grid->addWidget(caption, 0, column);
    }
    int row = 1;
    for (const SampleAccount& account : accounts) {
        auto* username = MakeLabel(QString::fromStdString(account.username), 13, QFont::Normal, strip);
        username->setObjectName(QStringLiteral("account%1").arg(row - 1));
        grid->addWidget(username, row, 0);
        grid->addWidget(MakeLabel(QString::fromStdString(account.password), 13, QFont::Normal, strip), row, 1);
        grid->addWidget(MakeLabel(QString::fromStdString(account.role), 13, QFont::Normal, strip), row, 2);
        ++row;
    }
    return strip;
}

void LoginForm::Restart() {
    m_error->hide();
    m_password->clear();
    if (m_username) {
        m_username->setFocus();
        m_username->selectAll();
    } else {
        m_password->setFocus();
    }
}

void LoginForm::ShowFailure(const QString& sentence) {
    m_error->setText(sentence);
    m_error->setMinimumHeight(m_error->heightForWidth(m_password->width()));
    m_error->show();
    m_password->clear();
    m_password->setFocus();
}

void LoginForm::Submit() {
    if (m_password->text().isEmpty()) return m_password->setFocus();
    emit Submitted(m_user ? *m_user : m_username->text().trimmed(), m_password->text());
}

void LoginForm::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_error) SetColor(m_error, FailureColor());
}

void LoginForm::paintEvent(QPaintEvent*) { QPainter(this).fillRect(rect(), palette().button()); }

}  // namespace quellbrook
