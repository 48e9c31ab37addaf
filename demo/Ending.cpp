#include "demo/Ending.h"

#include <QSocketNotifier>

#include <sys/signalfd.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <utility>

namespace brivandel {

namespace {

sigset_t endingSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    return signals;
}

} // namespace

void Ending::takeSignals() {
    const sigset_t signals = endingSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

Ending::Ending(std::function<void(const QByteArray& line)> lineRead, std::function<void()> ended)
    : lineRead_(std::move(lineRead))
    , ended_(std::move(ended)) {
    const sigset_t signals = endingSignals();
    signals_ = signalfd(-1, &signals, SFD_CLOEXEC);
    auto* const arrival = new QSocketNotifier(signals_, QSocketNotifier::Read, this);
    connect(arrival, &QSocketNotifier::activated, this, [this] { ended_(); });
    auto* const input = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(input, &QSocketNotifier::activated, this, [this, input] {
        readInput();
        if (unread_.isNull()) {
            input->setEnabled(false);
        }
    });
}

Ending::~Ending() {
    close(signals_);
}

void Ending::readInput() {
    std::array<char, 256> bytes{};
    const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count <= 0) {
        unread_ = {};
        ended_();
        return;
    }
    unread_.append(bytes.data(), count);
    for (qsizetype end = unread_.indexOf('\n'); end >= 0; end = unread_.indexOf('\n')) {
        lineRead_(unread_.left(end));
        unread_.remove(0, end + 1);
    }
}

} // namespace brivandel
