#include "platform/linux/defaults/PropertyList.h"

#include "platform/DefaultsStore.h"
#include "platform/linux/defaults/BinaryTexts.h"

#include <plist/plist.h>

#include <cstdlib>
#include <limits>
#include <utility>

namespace brivandel {

namespace {

template <typename Text>
using Allocated = std::unique_ptr<Text, decltype(&std::free)>;

QVariant toVariant(plist_t node) {
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        std::uint8_t flag = 0;
        plist_get_bool_val(node, &flag);
        return flag != 0;
    }
    case PLIST_UINT: {
        std::uint64_t number = 0; // a negative one comes as its two's complement
        plist_get_uint_val(node, &number);
        return qlonglong{static_cast<std::int64_t>(number)};
    }
    case PLIST_REAL: {
        double number = 0;
        plist_get_real_val(node, &number);
        return number;
    }
    case PLIST_STRING: {
        std::uint64_t length = 0;
        const char* text = plist_get_string_ptr(node, &length);
        return QString::fromUtf8(text, static_cast<qsizetype>(length));
    }
    case PLIST_DATA: {
        std::uint64_t length = 0;
        const char* bytes = plist_get_data_ptr(node, &length);
        return QByteArray(bytes, static_cast<qsizetype>(length));
    }
    default:
        return QVariant::fromValue(ForeignObject());
    }
}

plist_t toNode(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
        return plist_new_bool(value.toBool() ? 1 : 0);
    case QMetaType::LongLong:
        return plist_new_uint(static_cast<std::uint64_t>(value.toLongLong()));
    case QMetaType::Double:
        return plist_new_real(value.toDouble());
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        return plist_new_data(bytes.constData(), static_cast<std::uint64_t>(bytes.size()));
    }
    default:
        return plist_new_string(value.toString().toUtf8().constData());
    }
}

using Root = std::unique_ptr<void, decltype(&plist_free)>;

Root read(const char* bytes, std::uint32_t length) {
    plist_t parsed = nullptr;
    plist_from_memory(bytes, length, &parsed);
    return {parsed, &plist_free};
}

// Text that is no Unicode is read by the library, but what it then writes is read by nobody.
bool canBeWritten(plist_t root) {
    char* allocated = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(root, &allocated, &length);
    const Allocated<char> bytes(allocated, &std::free);
    const Root again = read(bytes.get(), length);
    return again != nullptr && plist_get_node_type(again.get()) == PLIST_DICT &&
           plist_dict_get_size(again.get()) == plist_dict_get_size(root) &&
           !hasBrokenText({bytes.get(), static_cast<qsizetype>(length)});
}

} // namespace

void PropertyList::Deleter::operator()(void* node) const {
    plist_free(node);
}

PropertyList::PropertyList() : PropertyList(Handle(plist_new_dict())) {}

PropertyList::PropertyList(Handle root) : root_(std::move(root)) {}

std::variant<PropertyList, PropertyListError> PropertyList::parse(const QByteArray& bytes) {
    if (bytes.isEmpty()) {
        return PropertyListError{QStringLiteral("the file is empty")};
    }
    if (bytes.size() > std::numeric_limits<std::int32_t>::max()) {
        return PropertyListError{QStringLiteral("the file is too large")};
    }
    Root root = read(bytes.constData(), static_cast<std::uint32_t>(bytes.size()));
    if (!root) {
        return PropertyListError{QStringLiteral("it is no property list, or a damaged one")};
    }
    if (plist_get_node_type(root.get()) != PLIST_DICT) {
        return PropertyListError{QStringLiteral("it holds no dictionary")};
    }
    if (!canBeWritten(root.get())) {
        return PropertyListError{QStringLiteral("it holds text that is none")};
    }
    return PropertyList(Handle(root.release()));
}

QByteArray PropertyList::toBinary() const {
    char* allocated = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(root_.get(), &allocated, &length);
    const Allocated<char> bytes(allocated, &std::free);
    return {bytes.get(), static_cast<qsizetype>(length)};
}

QVariant PropertyList::object(const QString& key) const {
    plist_t node = plist_dict_get_item(root_.get(), key.toUtf8().constData());
    return node == nullptr ? QVariant() : toVariant(node);
}

void PropertyList::set(const QString& key, const QVariant& value) {
    plist_dict_set_item(root_.get(), key.toUtf8().constData(), toNode(value));
}

void PropertyList::remove(const QString& key) {
    const QByteArray name = key.toUtf8();
    while (plist_dict_get_item(root_.get(), name.constData()) != nullptr) { // a file may hold a key twice
        plist_dict_remove_item(root_.get(), name.constData());
    }
}

QVariantMap PropertyList::objects() const {
    plist_dict_iter allocated = nullptr;
    plist_dict_new_iter(root_.get(), &allocated);
    const Allocated<void> iterator(allocated, &std::free);
    QVariantMap objects;
    while (true) {
        char* name = nullptr;
        plist_t node = nullptr;
        plist_dict_next_item(root_.get(), iterator.get(), &name, &node);
        const Allocated<char> key(name, &std::free);
        if (node == nullptr) {
            return objects;
        }
        objects.insert(QString::fromUtf8(key.get()), toVariant(node));
    }
}

} // namespace brivandel
