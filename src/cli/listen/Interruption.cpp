#include "cli/listen/Interruption.h"

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

namespace brivandel {

namespace {

// A signal's handler may do next to nothing: it writes to a pipe, and the loop reads there.
std::array<int, 2> signalPipe = {-1, -1};

void writeToPipe(int /*signal*/) {
    const int savedError = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = write(signalPipe[1], &byte, 1);
    errno = savedError;
}

constexpr std::array<int, 3> signals = {SIGINT, SIGTERM, SIGHUP};

} // namespace

Interruption::Interruption(std::function<void()> interrupted) {
    if (pipe(signalPipe.data()) != 0) {
        qFatal("no pipe can be made");
    }
    for (const int end : signalPipe) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    notifier_ = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [this, interrupted = std::move(interrupted)] {
        notifier_->setEnabled(false);
        interrupted();
    });
    struct sigaction action = {};
    action.sa_handler = writeToPipe;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < signals.size(); ++i) {
        sigaction(signals.at(i), nullptr, &before_.at(i));
        // Ctrl-C counts even so: a shell has what it starts in the background ignore it.
        const bool isNohup = signals.at(i) == SIGHUP && before_.at(i).sa_handler == SIG_IGN;
        if (!isNohup) {
            sigaction(signals.at(i), &action, nullptr);
        }
    }
}

Interruption::~Interruption() {
    for (std::size_t i = 0; i < signals.size(); ++i) {
        sigaction(signals.at(i), &before_.at(i), nullptr);
    }
    delete notifier_; // before its descriptor is closed
    for (const int end : signalPipe) {
        close(end);
    }
}

} // namespace brivandel
