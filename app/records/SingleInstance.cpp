#include "app/records/SingleInstance.h"

#include "app/common/HostGuard.h"
#include "base/ErrorLog.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QLocalSocket>
#include <QTimer>

#include <unistd.h>

namespace quellbrook {

namespace {

constexpr qint64 longestMessage = LongestRecordAddress + 1;  // including the line end
const char* const accepted = "accepted\n";
const char* const refused = "refused\n";

void LogFault(const std::string& sentence) { GetErrorLog().Log("quellbrook-host", "InstanceServer", sentence); }

}  // namespace

QString InstanceSocket(const QString& directory, const std::string& databasePath) {
    const QFileInfo file(QString::fromStdString(databasePath));
    const QString path = file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
    const QByteArray digest = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    return QStringLiteral("%1/quellbrook-%2-%3").arg(directory).arg(getuid()).arg(QString::fromLatin1(digest));
}

bool SendToInstance(const QString& socket, const RecordAddress& address, int limitMilliseconds) {
    QLocalSocket caller;
    caller.connectToServer(socket);
    if (!caller.waitForConnected(limitMilliseconds)) return false;
    caller.write(QByteArray::fromStdString(address.ToText() + "\n"));
    while (!caller.canReadLine()) {
        if (!caller.waitForReadyRead(limitMilliseconds)) return false;
    }
    return caller.readLine() == accepted;
}

// One connection; deletes itself when it ends.
class InstanceServer::Caller : public QObject {
public:
    Caller(QLocalSocket* socket, InstanceServer* server) : QObject(server), m_server(server), m_socket(socket) {
        m_socket->setParent(this);
        m_socket->setReadBufferSize(longestMessage);
        connect(m_socket, &QLocalSocket::readyRead, this, [this] { GuardHost(nullptr, [this] { Read(); }); });
        connect(m_socket, &QLocalSocket::disconnected, this, [this] { GuardHost(nullptr, [this] { Leave(); }); });
        m_timeout.setSingleShot(true);
        connect(&m_timeout, &QTimer::timeout, this,
                [this] { GuardHost(nullptr, [this] { Refuse("It was not complete in time."); }); });
        m_timeout.start(server->m_limit);
        if (m_socket->bytesAvailable() > 0) Read();
    }

    void Refuse(const std::string& why) {
        if (m_answered) return;
        LogFault("A message from another program was refused. " + why);
        Answer(refused);
    }

private:
    void Read() {
        if (m_answered) return;
        const QByteArray message = m_socket->peek(longestMessage);
        const qsizetype end = message.indexOf('\n');
        if (end < 0 && message.size() < longestMessage) return;
        if (end < 0) return Refuse("It is longer than any address.");
        if (end + 1 < m_socket->bytesAvailable()) return Refuse("It has more than one line.");
        Take(message.left(end).toStdString());
    }

    void Take(const std::string& text) {
        RecordAddress address;
        try {
            address = ParseRecordAddress(text);
        } catch (const Error& error) {
            return Refuse(error.Description());
        }
        Answer(accepted);
        emit m_server->Arrived(address);
    }

    void Answer(const char* answer) {
        m_answered = true;
        m_timeout.stop();
        m_socket->write(answer);
        m_socket->disconnectFromServer();
    }

    void Leave() {
        if (!m_answered && m_socket->bytesAvailable() > 0) {
            m_answered = true;
            LogFault("A message from another program was refused. It was not complete.");
        }
        m_timeout.stop();
        deleteLater();
    }

    InstanceServer* const m_server;
    QLocalSocket* const m_socket;
    QTimer m_timeout;
    bool m_answered = false;
};

InstanceServer::InstanceServer(const QString& socket, int limitMilliseconds)
    : m_lock(socket + QStringLiteral(".lock")), m_limit(limitMilliseconds) {
    m_lock.setStaleLockTime(0);
    if (!m_lock.tryLock(0)) {
        if (m_lock.error() != QLockFile::LockFailedError)
            LogFault("The file '" + m_lock.fileName().toStdString() + "' can't be created.");
        return;
    }
    QLocalServer::removeServer(socket);
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, [this] { GuardHost(nullptr, [this] { TakeCallers(); }); });
    if (!m_server.listen(socket)) LogFault("The socket '" + socket.toStdString() + "' can't be created.");
}

void InstanceServer::TakeCallers() {
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        std::erase_if(m_callers, [](const QPointer<QObject>& caller) { return !caller; });
        if (m_callers.size() >= MostCallers) {
            static_cast<Caller*>(m_callers.front().data())->Refuse("There were too many callers at once.");
            m_callers.pop_front();
        }
        m_callers.emplace_back(new Caller(socket, this));
    }
}

}  // namespace quellbrook
