#include "platform/linux/applescript/KeyTable.h"

#include <QRegularExpression>

namespace brivandel::script {

namespace {

QRegularExpression placeholder() {
    return QRegularExpression(QStringLiteral(R"(\{bar(?::([1-9]))?\})"));
}

} // namespace

QString withBarNumber(const QString& text, const QString& number) {
    QString result = text;
    const QRegularExpression expression = placeholder();
    for (auto match = expression.match(result); match.hasMatch(); match = expression.match(result)) {
        const auto places = match.captured(1).toInt(); // none is zero places
        result.replace(match.capturedStart(), match.capturedLength(), number.rightJustified(places, u'0'));
    }
    return result;
}

bool namesBarNumber(const QString& text) {
    return placeholder().match(text).hasMatch();
}

bool BarRange::holds(const QString& number) const {
    bool isNumber = false;
    const auto bar = number.toULongLong(&isNumber);
    return isNumber && bar >= first && bar <= last;
}

} // namespace brivandel::script
