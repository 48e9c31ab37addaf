#include "settings/TriggerPhrase.h"

#include <QStringView>

namespace brivandel {

namespace {

// The white space of Unicode that breaks no line: the space separators and the tab.
bool isSpace(QChar character) {
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

} // namespace

QString trimmedOfSpaces(const QString& text) {
    QStringView rest = text;
    while (!rest.isEmpty() && isSpace(rest.front())) {
        rest = rest.sliced(1);
    }
    while (!rest.isEmpty() && isSpace(rest.back())) {
        rest.chop(1);
    }
    return rest.toString();
}

QString triggerPhrase(const QString& typed) {
    return trimmedOfSpaces(typed).toLower();
}

} // namespace brivandel
