#pragma once

#include "app/records/RecordAddress.h"

#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QString>

#include <string>

namespace quellbrook {

// Where the program of this user that has the department open hears addresses: a socket in the directory, named after
// the user and the database file, however its path is written.
QString InstanceSocket(const QString& directory, const std::string& databasePath);

inline constexpr int InstanceTimeLimit = 5000;  // milliseconds, for every wait on the other end

// Hands the address to the program that hears at the socket. False when there is none, when it does not answer in time,
// and when it does not take the address.
bool HandOver(const QString& socket, const RecordAddress& address, int limitMilliseconds = InstanceTimeLimit);

// Hears addresses that later starts of the program hand over. A message is one line with an address and nothing behind
// it; any other is refused and logged, and so is one that is not complete in time.
class InstanceServer : public QObject {
    Q_OBJECT

public:
    // Hears from now on, unless another program does so at this socket. What a program that crashed left there is
    // removed. A socket that can't be made is logged. Only this user can reach it.
    explicit InstanceServer(const QString& socket, int limitMilliseconds = InstanceTimeLimit);

    bool IsListening() const { return m_server.isListening(); }

signals:
    // The other end has been answered already.
    void Arrived(const quellbrook::RecordAddress& address);

private:
    class Caller;

    QLockFile m_lock;  // held by the one program that hears
    QLocalServer m_server;
    const int m_limit;
};

}  // namespace quellbrook
