#pragma once

#include <QLocale>
#include <QString>

namespace brivandel {

/// How values are written in log lines: Booleans as words, decimal numbers with at least one decimal
/// ("48000.0", "0.3").
[[nodiscard]] inline QString logText(bool value) {
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

[[nodiscard]] inline QString logText(double value) {
    const QString text = QString::number(value, 'f', QLocale::FloatingPointShortest);
    return text.contains(u'.') ? text : text + QStringLiteral(".0");
}

} // namespace brivandel
