#include "app/Termination.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace quellbrook {

namespace {

constexpr int terminatingSignals[] = {SIGTERM, SIGINT, SIGHUP};

// Only these may be used in a signal handler.
volatile std::sig_atomic_t requested = 0;
volatile int pipeToLoop = -1;

void OnSystemSignal(int) {
    requested = 1;
    const char byte = 0;
    [[maybe_unused]] const auto written = write(pipeToLoop, &byte, 1);
}

}  // namespace

Termination::Termination() {
    requested = 0;
    if (pipe2(m_pipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
    pipeToLoop = m_pipe[1];
    auto* notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &Termination::OnSignal);
    for (const int each : terminatingSignals) {
        // The parent may have chosen that a signal is ignored.
        if (std::signal(each, OnSystemSignal) == SIG_IGN) std::signal(each, SIG_IGN);
    }
}

Termination::~Termination() {
    if (m_pipe[0] < 0) return;
    for (const int each : terminatingSignals)
        if (std::signal(each, SIG_DFL) == SIG_IGN) std::signal(each, SIG_IGN);
    pipeToLoop = -1;
    close(m_pipe[0]);
    close(m_pipe[1]);
}

bool Termination::IsRequested() const { return requested != 0; }

void Termination::OnSignal() {
    char byte = 0;
    [[maybe_unused]] const auto taken = read(m_pipe[0], &byte, 1);
    QCoreApplication::exit(ExitCode);
}

}  // namespace quellbrook
