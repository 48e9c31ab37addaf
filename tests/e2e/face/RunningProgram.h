#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

#include <optional>

namespace brivandel {

/// A program of the desktop or of this build that runs in the background and ends with this object; its
/// output is shown.
class RunningProgram {
public:
    RunningProgram(const QString& program, const QStringList& arguments);
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    [[nodiscard]] bool isRunning() const { return process_.state() == QProcess::Running; }
    /// Its exit status, when it ends in time.
    [[nodiscard]] std::optional<int> end();

private:
    QProcess process_;
};

/// Runs a program of this build to its end; its exit status.
[[nodiscard]] std::optional<int> run(const QString& program, const QStringList& arguments);

/// The path of a program of this build.
[[nodiscard]] QString builtProgram(const QString& name);

} // namespace brivandel
