#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace brivandel {

/// Puts a file where the system looks for what to start at login, or takes it away. program: the absolute
/// path of what is to be started; entryFor makes the file's content of it. Returns, with the path, why it
/// could not be done; none when it stands as wanted.
[[nodiscard]] std::optional<QString> switchAutostartFile(bool on, const QString& path, const QString& program,
                                                         QByteArray (*entryFor)(const QString& program));

} // namespace brivandel
