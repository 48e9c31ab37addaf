#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace brivandel {

/// How a phrase that somebody typed may be said: for each way the words, in lower case and without
/// punctuation, digits said as numbers. No more than eight ways, and none for a phrase without letters and
/// digits.
[[nodiscard]] QList<QStringList> spokenForms(const QString& phrase);

} // namespace brivandel
