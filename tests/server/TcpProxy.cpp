#include "tests/server/TcpProxy.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <array>
#include <stdexcept>

namespace quellbrook::testing {

namespace {

constexpr int pollMilliseconds = 20;
constexpr size_t truncatedLength = 3;

sockaddr_in OnLoopback(uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

}  // namespace

TcpProxy::TcpProxy(uint16_t serverPort) : m_serverPort(serverPort), m_listener(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address = OnLoopback(0);
    socklen_t length = sizeof address;
    if (bind(m_listener, reinterpret_cast<sockaddr*>(&address), length) != 0 || listen(m_listener, 16) != 0 ||
        getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &length) != 0)
        throw std::runtime_error("The proxy could not listen.");
    m_port = ntohs(address.sin_port);
    m_acceptor = std::thread([this] { Accept(); });
}

TcpProxy::~TcpProxy() {
    m_isEnding = true;
    m_acceptor.join();
    for (std::thread& thread : m_threads) thread.join();
    close(m_listener);
}

void TcpProxy::Cut() {
    const std::lock_guard lock(m_mutex);
    for (const int each : m_sockets) shutdown(each, SHUT_RDWR);
}

void TcpProxy::Accept() {
    while (!m_isEnding) {
        pollfd waiting{m_listener, POLLIN, 0};
        if (poll(&waiting, 1, pollMilliseconds) <= 0) continue;
        const int client = accept(m_listener, nullptr, nullptr);
        if (client < 0) continue;
        Release();
        m_threads.emplace_back([this, client] { Serve(client); });
    }
}

void TcpProxy::BreakMessage(int n, Fault fault) {
    m_fault = fault;
    m_hasBroken = false;
    m_messagesToFault = n;
}

std::optional<TcpProxy::Fault> TcpProxy::FaultOfNextMessage() {
    if (m_messagesToFault == 0 || --m_messagesToFault > 0) return std::nullopt;
    m_hasBroken = true;
    return m_fault;
}

void TcpProxy::HoldMessage() const {
    const int releases = m_releases;
    while (m_releases == releases && !m_isEnding) poll(nullptr, 0, pollMilliseconds);
}

// False if the connection must end.
bool TcpProxy::Forward(int from, int to, bool isAnswer) {
    std::array<char, 16384> bytes{};
    ssize_t count = recv(from, bytes.data(), bytes.size(), 0);
    if (count <= 0 || (isAnswer && m_mode == Mode::LoseAnswers)) return false;
    if (isAnswer && m_isWaiting.exchange(false)) ++m_roundTrips;
    if (!isAnswer) m_isWaiting = true;
    const std::optional<Fault> fault = FaultOfNextMessage();
    if (fault == Fault::Drop) return false;
    if (fault == Fault::Hold) HoldMessage();
    const bool isTruncated = fault == Fault::Truncate || (isAnswer && m_mode == Mode::Truncate);
    if (isTruncated) count = std::min<ssize_t>(count, truncatedLength);
    for (ssize_t sent = 0; sent < count;) {
        const ssize_t written = send(to, bytes.data() + sent, static_cast<size_t>(count - sent), MSG_NOSIGNAL);
        if (written <= 0) return false;
        sent += written;
    }
    return !isTruncated && !fault;
}

void TcpProxy::Serve(int client) {
    const int server = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = OnLoopback(m_serverPort);
    {
        const std::lock_guard lock(m_mutex);
        m_sockets.insert(m_sockets.end(), {client, server});
    }
    bool isOpen = connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    while (isOpen && !m_isEnding) {
        const short wanted = m_mode == Mode::Stall ? 0 : POLLIN;
        std::array<pollfd, 2> waiting{{{client, wanted, 0}, {server, wanted, 0}}};
        poll(waiting.data(), waiting.size(), pollMilliseconds);
        if (m_mode == Mode::Stall) continue;
        if (waiting[0].revents != 0) isOpen = Forward(client, server, false);
        if (isOpen && waiting[1].revents != 0) isOpen = Forward(server, client, true);
    }
    const std::lock_guard lock(m_mutex);
    std::erase(m_sockets, client);
    std::erase(m_sockets, server);
    close(client);
    close(server);
}

}  // namespace quellbrook::testing
