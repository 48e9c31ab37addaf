#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

#include <nlohmann/json.hpp>

#include <chrono>
#include <functional>
#include <optional>

namespace brivandel {

/// A program of this build that reports by lines of JSON; it is ended with this object.
class ChildProcess {
public:
    using Event = nlohmann::json;

    ChildProcess(const QString& program, const QStringList& arguments);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// The next event for which this holds, within the time; events before it are passed over.
    [[nodiscard]] std::optional<Event> next(const std::function<bool(const Event&)>& condition,
                                            std::chrono::milliseconds patience);
    [[nodiscard]] std::optional<Event> next(const std::string& eventName, std::chrono::milliseconds patience);

    /// As Ctrl-C does; the exit status, none when it did not end of itself.
    [[nodiscard]] std::optional<int> interrupt();

private:
    QProcess process_;
};

} // namespace brivandel
