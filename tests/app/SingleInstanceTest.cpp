#include "app/records/SingleInstance.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/ui/QtTestMain.h"
#include "tests/support/ui/Widgets.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QLocalSocket>
#include <QThread>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>

#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

constexpr RecordAddress address{RecordKind::Property, 42};
constexpr int patience = 10'000;  // milliseconds; longer than any of these tests

class SingleInstanceTest : public ::testing::Test {
protected:
    QString Socket() const { return QString::fromStdString(m_directory.Path()) + "/instance"; }

    // Runs blocking work in a thread while this thread's event loop runs.
    static void Beside(const std::function<void()>& work) {
        const std::unique_ptr<QThread> thread(QThread::create(work));
        QEventLoop loop;
        QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
        thread->start();
        loop.exec();
        thread->wait();
    }

    bool SendBeside(const RecordAddress& record = address) const {
        bool taken = false;
        Beside([&] { taken = SendToInstance(Socket(), record, patience); });
        return taken;
    }

    // The answer to this message until the connection ends.
    QByteArray AnswerTo(const QByteArray& message) const {
        QByteArray answer;
        Beside([&] {
            QLocalSocket socket;
            socket.connectToServer(Socket());
            ASSERT_TRUE(socket.waitForConnected(patience));
            socket.write(message);
            socket.flush();
            while (socket.waitForReadyRead(patience)) {
            }
            answer = socket.readAll();
        });
        return answer;
    }

    ScratchFolder m_directory;
};

void Collect(InstanceServer& server, std::vector<RecordAddress>& into) {
    QObject::connect(&server, &InstanceServer::Arrived,
                     [&into](const RecordAddress& record) { into.push_back(record); });
}

}  // namespace

TEST_F(SingleInstanceTest, AnAddressReachesTheRunningProgram) {
    InstanceServer server(Socket());
    ASSERT_TRUE(server.IsListening());
    std::vector<RecordAddress> arrived;
    Collect(server, arrived);
    EXPECT_TRUE(SendBeside());
    EXPECT_TRUE(SendBeside({RecordKind::Vehicle, 2'147'483'647}));
    EXPECT_EQ(arrived, (std::vector<RecordAddress>{address, {RecordKind::Vehicle, 2'147'483'647}}));
}

TEST_F(SingleInstanceTest, WithoutARunningProgramNothingIsSent) {
    EXPECT_FALSE(SendToInstance(Socket(), address, patience));
    EXPECT_FALSE(QFileInfo::exists(Socket()));
}

TEST_F(SingleInstanceTest, OnlyTheFirstOfTwoProgramsListens) {
    std::vector<RecordAddress> first, second;
    auto running = std::make_unique<InstanceServer>(Socket());
    Collect(*running, first);
    InstanceServer later(Socket());
    Collect(later, second);
    EXPECT_FALSE(later.IsListening());
    EXPECT_TRUE(SendBeside());
    EXPECT_EQ(first.size(), 1u);
    EXPECT_TRUE(second.empty());
    running.reset();
    InstanceServer successor(Socket());
    EXPECT_TRUE(successor.IsListening());
}

TEST_F(SingleInstanceTest, AnEndedProgramLeavesNothing) {
    { const InstanceServer server(Socket()); }
    EXPECT_TRUE(std::filesystem::is_empty(m_directory.Path()));
    EXPECT_FALSE(SendToInstance(Socket(), address, patience));
}

TEST_F(SingleInstanceTest, TheSocketOfACrashedProgramIsRemoved) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        QLockFile lock(Socket() + ".lock");
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const std::string path = Socket().toStdString();
        std::memcpy(address.sun_path, path.c_str(), path.size());
        const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        const bool left = lock.tryLock(0) &&
                          bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0 &&
                          listen(socket, 1) == 0;
        _exit(left ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    ASSERT_TRUE(QFileInfo::exists(Socket()));
    ASSERT_TRUE(QFileInfo::exists(Socket() + ".lock"));
    EXPECT_FALSE(SendToInstance(Socket(), address, patience));

    InstanceServer server(Socket());
    ASSERT_TRUE(server.IsListening());
    EXPECT_TRUE(SendBeside());
}

TEST_F(SingleInstanceTest, OnlyTheUserReachesTheSocket) {
    const InstanceServer server(Socket());
    using std::filesystem::perms;
    const perms others = perms::group_all | perms::others_all;
    EXPECT_EQ(std::filesystem::status(Socket().toStdString()).permissions() & others, perms::none);
}

TEST_F(SingleInstanceTest, AMessageThatIsNotAnAddressIsRefusedAndLogged) {
    InstanceServer server(Socket());
    std::vector<RecordAddress> arrived;
    Collect(server, arrived);
    for (const QByteArray& message :
         {QByteArray("\n"), QByteArray("hello\n"), QByteArray("--fresh\n"),
          QByteArray("tessarine://miproperty/open/0\n"), QByteArray("tessarine://miproperty/open/42\r\n"),
          QByteArray("tessarine://miproperty/open/4\0002\n", 32),
          QByteArray("tessarine://miproperty/open/42\ntessarine://miproperty/open/43\n"),
          QByteArray("tessarine://miproperty/open/42\n ")}) {
        TestErrorLog().Announce("InstanceServer");
        EXPECT_EQ(AnswerTo(message), "refused\n") << message.toStdString();
    }
    EXPECT_TRUE(arrived.empty());
    EXPECT_TRUE(SendBeside()) << "it still listens";
}

TEST_F(SingleInstanceTest, AMessageWithoutAnEndIsRefusedAsSoonAsItIsTooLong) {
    InstanceServer server(Socket());
    TestErrorLog().Announce("InstanceServer");
    EXPECT_EQ(AnswerTo(QByteArray(100'000, 'x')).left(8), "refused\n");
    EXPECT_EQ(TestErrorLog().Entries().back().message,
              "A message from another program was refused. It is longer than any address.");
}

TEST_F(SingleInstanceTest, TheLogDoesNotContainTextFromTheOtherProcess) {
    InstanceServer server(Socket());
    TestErrorLog().Announce("InstanceServer");
    AnswerTo("a\x1b[2J\r[2026-01-01] [error] x\n");
    const std::string message = TestErrorLog().Entries().back().message;
    EXPECT_EQ(message.find_first_of("\x1b\r\n"), std::string::npos) << message;
    EXPECT_NE(message.find("'a?[2J?[2026-01-01] [error] x'"), std::string::npos) << message;
}

TEST_F(SingleInstanceTest, AMessageThatIsNotCompleteInTimeIsRefused) {
    InstanceServer server(Socket(), 1);
    TestErrorLog().Announce("InstanceServer");
    EXPECT_EQ(AnswerTo("tessarine://miproperty"), "refused\n");
    EXPECT_EQ(TestErrorLog().Entries().back().message,
              "A message from another program was refused. It was not complete in time.");
}

TEST_F(SingleInstanceTest, AConnectionThatEndsInTheMiddleIsLogged) {
    InstanceServer server(Socket());
    std::vector<RecordAddress> arrived;
    Collect(server, arrived);
    TestErrorLog().Announce("InstanceServer");
    QLocalSocket caller;
    caller.connectToServer(Socket());
    ASSERT_TRUE(caller.waitForConnected(patience));
    caller.write("tessarine://miproperty/open/4");
    caller.flush();
    caller.disconnectFromServer();
    EXPECT_TRUE(SendBeside());
    EXPECT_EQ(arrived, std::vector<RecordAddress>{address});
}

TEST_F(SingleInstanceTest, AConnectionWithoutAMessageIsNotAFault) {
    InstanceServer server(Socket());
    QLocalSocket caller;
    caller.connectToServer(Socket());
    ASSERT_TRUE(caller.waitForConnected(patience));
    caller.disconnectFromServer();
    EXPECT_TRUE(SendBeside());
}

TEST_F(SingleInstanceTest, AnAddressMayArriveInPieces) {
    InstanceServer server(Socket());
    std::vector<RecordAddress> arrived;
    Collect(server, arrived);
    QByteArray answer;
    Beside([&] {
        QLocalSocket socket;
        socket.connectToServer(Socket());
        ASSERT_TRUE(socket.waitForConnected(patience));
        for (const char c : std::string("tessarine://miproperty/open/42\n")) {
            socket.write(&c, 1);
            socket.waitForBytesWritten(patience);
        }
        while (socket.waitForReadyRead(patience)) {
        }
        answer = socket.readAll();
    });
    EXPECT_EQ(answer, "accepted\n");
    EXPECT_EQ(arrived, std::vector<RecordAddress>{address});
}

TEST_F(SingleInstanceTest, AProgramThatDoesNotAnswerTimesOut) {
    QLocalServer silent;
    ASSERT_TRUE(silent.listen(Socket()));
    EXPECT_FALSE(SendToInstance(Socket(), address, 1));
}

TEST_F(SingleInstanceTest, ARefusalIsReportedToTheSender) {
    QLocalServer other;
    ASSERT_TRUE(other.listen(Socket()));
    QObject::connect(&other, &QLocalServer::newConnection, [&other] {
        QLocalSocket* caller = other.nextPendingConnection();
        caller->write("refused\n");
        caller->disconnectFromServer();
    });
    EXPECT_FALSE(SendBeside());
}

TEST_F(SingleInstanceTest, ASocketThatCannotBeCreatedIsLogged) {
    TestErrorLog().Announce("InstanceServer");
    const InstanceServer server(Socket() + "/below/nothing");
    EXPECT_FALSE(server.IsListening());
    TestErrorLog().Announce("InstanceServer");
    const InstanceServer tooLong(QString::fromStdString(m_directory.Path()) + "/" + QString(120, 'x'));
    EXPECT_FALSE(tooLong.IsListening());
}

TEST_F(SingleInstanceTest, EachUserAndDatabaseHasItsOwnSocket) {
    const std::string database = m_directory.Path() + "/room.sqlite";
    std::ofstream(database) << "x";
    std::filesystem::create_symlink(database, m_directory.Path() + "/link.sqlite");
    const QString socket = InstanceSocket("/run/user/7", database);
    EXPECT_TRUE(socket.startsWith(QString("/run/user/7/quellbrook-%1-").arg(getuid())));
    EXPECT_LT(socket.size(), 60);
    EXPECT_EQ(InstanceSocket("/run/user/7", m_directory.Path() + "/link.sqlite"), socket);
    EXPECT_EQ(InstanceSocket("/run/user/7", m_directory.Path() + "/./room.sqlite"), socket);
    EXPECT_NE(InstanceSocket("/run/user/7", m_directory.Path() + "/other.sqlite"), socket);
}

TEST_F(SingleInstanceTest, IdleCallersDoNotKeepOutAnAddress) {
    constexpr size_t idleCallers = 40;
    InstanceServer server(Socket(), patience);
    std::vector<RecordAddress> arrived;
    Collect(server, arrived);
    // The server keeps at most MostCallers connections, including the one that sends the address.
    for (size_t i = InstanceServer::MostCallers; i < idleCallers + 1; ++i) TestErrorLog().Announce("InstanceServer");
    Beside([&] {
        std::vector<std::unique_ptr<QLocalSocket>> idle;
        for (size_t i = 0; i < idleCallers; ++i) {
            idle.push_back(std::make_unique<QLocalSocket>());
            idle.back()->connectToServer(Socket());
            ASSERT_TRUE(idle.back()->waitForConnected(patience));
        }
        EXPECT_TRUE(SendToInstance(Socket(), address, patience));
    });
    EXPECT_EQ(arrived, std::vector{address});
}

}  // namespace quellbrook::testing
