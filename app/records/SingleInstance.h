#pragma once

#include "app/records/RecordAddress.h"

#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QPointer>
#include <QString>

#include <deque>
#include <string>

namespace quellbrook {

// The name of the socket of this user's program that has the database open. Different spellings of the database's path
// have the same name.
QString InstanceSocket(const QString& directory, const std::string& databasePath);

inline constexpr int InstanceTimeLimit = 5000;  // milliseconds, for every wait on the other process

// Sends the address to the program that listens on the socket. Returns false if there is none, it does not answer in
// time, or it refuses.
bool SendToInstance(const QString& socket, const RecordAddress& address, int limitMilliseconds = InstanceTimeLimit);

// Receives addresses from later starts of the program. A message is one line with an address. Any other message, and
// one that is not complete in time, is refused and logged. With more than MostCallers connections, the oldest ones are
// refused, so that idle callers do not use up the files that the program can open.
class InstanceServer : public QObject {
    Q_OBJECT

public:
    static constexpr size_t MostCallers = 16;

    // Starts listening, unless another program listens on this socket. Removes a socket that a crashed program left.
    // Logs failures. Only this user can connect.
    explicit InstanceServer(const QString& socket, int limitMilliseconds = InstanceTimeLimit);

    bool IsListening() const { return m_server.isListening(); }

signals:
    // Emitted after the answer has been sent.
    void Arrived(const quellbrook::RecordAddress& address);

private:
    class Caller;

    void TakeCallers();

    QLockFile m_lock;  // of the program that listens
    QLocalServer m_server;
    const int m_limit;
    std::deque<QPointer<QObject>> m_callers;  // those without an answer, the oldest first
};

}  // namespace quellbrook
