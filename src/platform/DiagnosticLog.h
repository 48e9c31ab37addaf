#pragma once

#include <QString>

namespace brivandel {

/// Where the engine writes down what happens to it.
class DiagnosticLog {
public:
    virtual ~DiagnosticLog() = default;
    /// Adds one message, stamped with the time. Never fails visibly: a log must not stop a take. Any thread.
    virtual void write(const QString& message) = 0;
};

} // namespace brivandel
