#include "platform/scripted/StoredValueJson.h"

#include <QByteArray>
#include <QString>

namespace brivandel {

nlohmann::ordered_json storedValueJson(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::QString:
        return value.toString().toStdString();
    case QMetaType::QByteArray:
        return QString::fromUtf8(value.toByteArray()).toStdString();
    default:
        return nullptr;
    }
}

} // namespace brivandel
