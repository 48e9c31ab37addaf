#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

namespace brivandel {

/// The action line that presses a key by its code, as in: key code 41 using {shift down}
[[nodiscard]] inline QString keyCodeAction(std::int64_t keyCode, const QStringList& modifiers = {}) {
    QString action = QStringLiteral("key code ") + QString::number(keyCode);
    if (!modifiers.isEmpty()) {
        action += QStringLiteral(" using {") + modifiers.join(QStringLiteral(", ")) + u'}';
    }
    return action;
}

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
