#include "ui/common/DesktopCommandRunner.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"

#include <QDesktopServices>
#include <QObject>
#include <QUrl>

#include <gtest/gtest.h>

namespace quellbrook {

namespace {

// Handles the scheme's addresses instead of the desktop.
class AddressTaker : public QObject {
    Q_OBJECT

public:
    AddressTaker() { QDesktopServices::setUrlHandler("tessarine", this, "Take"); }
    ~AddressTaker() override { QDesktopServices::unsetUrlHandler("tessarine"); }

    QStringList taken;

public slots:
    void Take(const QUrl& address) { taken << address.toString(); }
};

}  // namespace

TEST(DesktopCommandRunner, TheAddressBeginsAtItsScheme) {
    EXPECT_EQ(AddressInCommand("cmd /c start tessarine://mivehicle/open/42"), "tessarine://mivehicle/open/42");
    EXPECT_EQ(AddressInCommand("cmd /c start notepad"), "");
}

TEST(DesktopCommandRunner, TheDesktopOpensTheAddress) {
    AddressTaker desktop;
    RunInDesktop("cmd /c start tessarine://miproperty/open/7");
    EXPECT_EQ(desktop.taken, QStringList("tessarine://miproperty/open/7"));
}

TEST(DesktopCommandRunner, ACommandWithoutAnAddressIsRefused) {
    const Error error = testing::RaisedBy([] { RunInDesktop("cmd /c start notepad"); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "There is no address in the command \"cmd /c start notepad\".");
}

}  // namespace quellbrook

#include "DesktopCommandRunnerTest.moc"
