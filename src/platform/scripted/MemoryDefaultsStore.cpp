#include "platform/scripted/MemoryDefaultsStore.h"

#include <utility>

namespace brivandel {

MemoryDefaultsStore::MemoryDefaultsStore(QVariantMap objects, WriteObserver observer)
    : objects_(std::move(objects))
    , observer_(std::move(observer)) {}

QVariant MemoryDefaultsStore::object(const QString& key) const {
    return objects_.value(key);
}

void MemoryDefaultsStore::set(const QString& key, const QVariant& value) {
    preset(key, value);
    if (observer_) {
        observer_(key, value);
    }
}

void MemoryDefaultsStore::remove(const QString& key) {
    set(key, QVariant());
}

void MemoryDefaultsStore::preset(const QString& key, const QVariant& value) {
    if (value.isValid()) {
        objects_.insert(key, value);
    } else {
        objects_.remove(key);
    }
}

} // namespace brivandel
