#pragma once

#include <QObject>

#include <array>
#include <csignal>
#include <functional>

class QSocketNotifier;

namespace brivandel {

/// While it lives, Ctrl-C, a request to terminate and the end of the terminal come as a call on the main
/// thread, once. Under nohup the end of the terminal is ignored, as it was before. One at a time.
class Interruption final : public QObject {
public:
    explicit Interruption(std::function<void()> interrupted);
    ~Interruption() override;
    Q_DISABLE_COPY_MOVE(Interruption)

private:
    QSocketNotifier* notifier_;
    /// What the three signals did before.
    std::array<struct sigaction, 3> before_{};
};

} // namespace brivandel
