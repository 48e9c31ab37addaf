#pragma once

#include <QString>

#include <optional>

namespace brivandel {

/// Whether the desktop starts the program when its user logs in, and who says so.
struct Autostart {
    bool isOn = false;
    QString entryPath; ///< the file that says it, as far as there is one
};

/// How it stands. Defined once a system, like the next.
[[nodiscard]] Autostart autostart();

/// Switches it. program: the absolute path of what is to be started. Returns, in words, why it could not be
/// done; none when it stands as wanted.
[[nodiscard]] std::optional<QString> setAutostart(bool on, const QString& program);

} // namespace brivandel
