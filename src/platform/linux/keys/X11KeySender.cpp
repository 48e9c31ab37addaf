#include "platform/linux/keys/X11KeySender.h"

#include "platform/linux/keys/X11Connection.h"
#include "platform/linux/keys/X11KeySession.h"
#include "platform/linux/keys/X11Windows.h"

#include <utility>

namespace brivandel {

X11KeySender::X11KeySender(QByteArray display) : display_(std::move(display)) {}

std::variant<std::unique_ptr<KeySession>, KeyFailure>
X11KeySender::openSession(KeySession::Deadline deadline) {
    auto connection = x11::Connection::open(display_, deadline);
    if (auto* const failure = std::get_if<KeyFailure>(&connection)) {
        return std::move(*failure);
    }
    return std::make_unique<x11::Session>(std::get<std::unique_ptr<x11::Connection>>(std::move(connection)));
}

KeySenderReport X11KeySender::report(const TargetName& target, std::chrono::milliseconds patience) const {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    auto opened = x11::Connection::open(display_, deadline);
    if (const auto* const failure = std::get_if<KeyFailure>(&opened)) {
        return {.problem = failure->detail, .windowManager = {}, .target = {}};
    }
    const auto connection = std::get<std::unique_ptr<x11::Connection>>(std::move(opened));
    const x11::Connection::Bound bound(*connection, deadline);
    const x11::Windows windows(*connection);
    KeySenderReport report;
    report.windowManager = windows.windowManagerName().value_or(QString());
    if (const auto owner = windows.find(target)) {
        report.target = {.program = owner->programName(),
                         .windowTitle = windows.titleOf(owner->window),
                         .pid = owner->pid};
    }
    if (!connection->hasXTest()) {
        report.problem =
            QStringLiteral("The X display takes no keys from programs (it has no XTEST extension).");
    }
    if (const auto lost = connection->lost(deadline)) {
        report.problem = lost->detail;
    }
    return report;
}

} // namespace brivandel
