#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace quellbrook::testing {

// Passes connections on to a server on this machine, on a port of its own, and breaks them on demand.
class TcpProxy {
public:
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

private:
    enum class Mode { Pass, Stall, LoseAnswers, Truncate };

    void Accept();
    void Serve(int client);
    bool Forward(int from, int to, bool isAnswer) const;

    uint16_t m_serverPort;
    uint16_t m_port = 0;
    int m_listener = -1;
    std::atomic<Mode> m_mode = Mode::Pass;
    std::atomic<bool> m_isEnding = false;
    std::mutex m_mutex;
    std::vector<int> m_sockets;
    std::vector<std::thread> m_threads;
    std::thread m_acceptor;
};

}  // namespace quellbrook::testing
