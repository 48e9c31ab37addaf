#pragma once

#include <QString>

namespace brivandel {

/// The script that brings Logic Pro to the front and carries out one action line in it, as in: key code 49.
/// The line is put in as it stands.
[[nodiscard]] inline QString keystrokeScript(const QString& action) {
    return QStringLiteral("tell application \"System Events\"\n"
                          "    tell process \"Logic Pro\"\n"
                          "        set frontmost to true\n"
                          "        ") +
           action +
           QStringLiteral("\n"
                          "    end tell\n"
                          "end tell");
}

} // namespace brivandel
