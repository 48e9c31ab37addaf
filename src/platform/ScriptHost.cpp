#include "platform/ScriptHost.h"

#include <QStringList>

namespace brivandel {

namespace {

QString describeValue(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::QString: {
        QString text = value.toString();
        text.replace(u'\\', QStringLiteral("\\\\"))
            .replace(u'"', QStringLiteral("\\\""))
            .replace(u'\n', QStringLiteral("\\n"));
        return u'"' + text + u'"';
    }
    case QMetaType::QVariantList: {
        QStringList parts;
        for (const QVariant& part : value.toList()) {
            parts += describeValue(part);
        }
        return u'(' + parts.join(QStringLiteral(", ")) + u')';
    }
    default:
        return value.toString();
    }
}

} // namespace

QString describe(const ScriptErrorDictionary& error) {
    QString text = QStringLiteral("{");
    for (auto entry = error.cbegin(); entry != error.cend(); ++entry) {
        if (entry != error.cbegin()) {
            text += u' ';
        }
        text += entry.key() + QStringLiteral(" = ") + describeValue(entry.value()) + u';';
    }
    return text + u'}';
}

} // namespace brivandel
