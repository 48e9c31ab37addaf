#include "cli/listen/TerminalText.h"

#include <QList>
#include <QTextBoundaryFinder>

#include <sys/ioctl.h>
#include <unicode/uchar.h>
#include <unistd.h>

#include <algorithm>

namespace brivandel {

namespace {

// Of what a reader sees as one character.
int columnsOfCharacter(QStringView character) {
    const QList<uint> codePoints = character.toUcs4();
    const auto width =
        u_getIntPropertyValue(static_cast<UChar32>(codePoints.front()), UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

// Calls visit with each character, until it returns false.
template <typename Visit>
void forEachCharacter(const QString& text, Visit visit) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype begin = 0;
    for (auto end = finder.toNextBoundary(); end > begin; end = finder.toNextBoundary()) {
        if (!visit(QStringView(text).mid(begin, end - begin))) {
            return;
        }
        begin = end;
    }
}

QString withoutControlCharacters(QString text) {
    std::ranges::replace_if(
        text, [](QChar character) { return character.category() == QChar::Other_Control; }, u' ');
    return text;
}

} // namespace

int columnsOf(const QString& text) {
    int columns = 0;
    forEachCharacter(text, [&columns](QStringView character) {
        columns += columnsOfCharacter(character);
        return true;
    });
    return columns;
}

QString fittedTo(int columns, const QString& text) {
    QString line = withoutControlCharacters(text);
    if (columnsOf(line) <= columns) {
        return line;
    }
    QString kept;
    int room = columns - 1; // for the ellipsis
    forEachCharacter(line, [&kept, &room](QStringView character) {
        room -= columnsOfCharacter(character);
        if (room >= 0) {
            kept += character;
        }
        return room > 0;
    });
    return columns > 0 ? kept + u'…' : QString();
}

int terminalColumns() {
    constexpr int usual = 80;
    winsize size{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

} // namespace brivandel
