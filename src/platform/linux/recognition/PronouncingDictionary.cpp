#include "platform/linux/recognition/PronouncingDictionary.h"

#include <QFile>

namespace brivandel {

PronouncingDictionary::PronouncingDictionary(const QString& path) {
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        text_ = file.readAll();
    }
}

} // namespace brivandel
