#pragma once

#include <QObject>

namespace quellbrook {

// While it exists, the signals SIGTERM, SIGINT and SIGHUP end the program's event loops instead of the process, so that
// the program removes its scratch copy. QApplication::exec then returns ExitCode. At most one object at a time.
class Termination : public QObject {
    Q_OBJECT

public:
    static constexpr int ExitCode = 143;

    Termination();
    ~Termination() override;
    Termination(const Termination&) = delete;
    Termination& operator=(const Termination&) = delete;

    // Whether a signal has arrived, also before the event loop has started.
    bool IsRequested() const;

private:
    void OnSignal();

    int m_pipe[2] = {-1, -1};
};

}  // namespace quellbrook
