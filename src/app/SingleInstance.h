#pragma once

#include "app/LaunchRequest.h"

#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QString>

#include <optional>

namespace brivandel {

/// One program a user: the first one holds a lock and listens on a socket beside it; each further one hands
/// its request over and ends. Main thread.
class SingleInstance final : public QObject {
    Q_OBJECT
public:
    /// folder: the user's own, for files of this login (on Linux XDG_RUNTIME_DIR).
    explicit SingleInstance(const QString& folder);

    enum class Role {
        First,    ///< this program is the one
        HandedOn, ///< another one has taken the request
        Mute,     ///< another one holds the lock and did not answer; problem() says so
    };
    /// Waits a few seconds at most, for one that is just starting or ending.
    [[nodiscard]] Role begin(LaunchRequest request);
    [[nodiscard]] const QString& problem() const { return problem_; }

Q_SIGNALS:
    void requested(brivandel::LaunchRequest request);

private:
    enum class Answer { Accepted, NobodyThere, None };
    [[nodiscard]] Answer handOver(LaunchRequest request);
    void serve();

    QString socketPath_;
    QLockFile lock_;
    QLocalServer server_;
    QString problem_;
};

} // namespace brivandel
