#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace quellbrook::testing {

// Passes connections on to a server on this machine, on a port of its own, and breaks them on demand.
class TcpProxy {
public:
    // What happens to a message: it is lost; only its first bytes pass; it passes when another connection is opened, or
    // at Release, and its connection is silent until then. Afterwards its connection ends.
    enum class Fault { Drop, Truncate, Hold };

    explicit TcpProxy(uint16_t serverPort);
    ~TcpProxy();
    TcpProxy(const TcpProxy&) = delete;
    TcpProxy& operator=(const TcpProxy&) = delete;

    uint16_t Port() const { return m_port; }

    // Nothing passes any more, in either direction, and no connection ends.
    void Stall() { m_mode = Mode::Stall; }
    // What the server answers is lost. Its first answer ends the connection to the client.
    void LoseAnswers() { m_mode = Mode::LoseAnswers; }
    // Of the server's next answer only the first bytes pass, then the connection ends.
    void Truncate() { m_mode = Mode::Truncate; }
    void Pass() { m_mode = Mode::Pass; }
    // Ends all connections.
    void Cut();

    // Breaks the nth message from now, where 1 is the next one, in either direction. Once.
    void BreakMessage(int n, Fault fault);
    void Release() { ++m_releases; }
    bool HasBroken() const { return m_hasBroken; }
    // How often the client has waited for the server.
    int RoundTrips() const { return m_roundTrips; }

private:
    enum class Mode { Pass, Stall, LoseAnswers, Truncate };

    void Accept();
    void Serve(int client);
    bool Forward(int from, int to, bool isAnswer);
    std::optional<Fault> FaultOfNextMessage();
    void HoldMessage() const;

    uint16_t m_serverPort;
    uint16_t m_port = 0;
    int m_listener = -1;
    std::atomic<Mode> m_mode = Mode::Pass;
    std::atomic<bool> m_isEnding = false;
    std::atomic<Fault> m_fault = Fault::Drop;
    std::atomic<int> m_messagesToFault = 0;
    std::atomic<bool> m_hasBroken = false;
    std::atomic<int> m_roundTrips = 0;
    std::atomic<bool> m_isWaiting = false;  // for an answer
    std::atomic<int> m_releases = 0;
    std::mutex m_mutex;
    std::vector<int> m_sockets;
    std::vector<std::thread> m_threads;
    std::thread m_acceptor;
};

}  // namespace quellbrook::testing
