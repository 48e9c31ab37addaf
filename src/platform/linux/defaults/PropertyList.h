#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <memory>
#include <variant>

namespace brivandel {

/// What could not be read as a property list with a dictionary at its top, in words.
struct PropertyListError {
    QString reason;
};

/// A property list with a dictionary at its top. What is not touched stays what it is, objects of types that
/// no setting has included.
class PropertyList {
public:
    /// An empty dictionary.
    PropertyList();

    /// Reads the binary form or XML.
    [[nodiscard]] static std::variant<PropertyList, PropertyListError> parse(const QByteArray& bytes);
    /// The binary form: XML cannot hold every string.
    [[nodiscard]] QByteArray toBinary() const;

    /// A Boolean, 64-bit integer, real, string or data as bool, qlonglong, double, QString or QByteArray, one
    /// of another type as a ForeignObject; invalid when absent.
    [[nodiscard]] QVariant object(const QString& key) const;
    /// Any of these but a ForeignObject.
    void set(const QString& key, const QVariant& value);
    void remove(const QString& key);
    /// Every object.
    [[nodiscard]] QVariantMap objects() const;

private:
    struct Deleter {
        void operator()(void* node) const;
    };
    using Handle = std::unique_ptr<void, Deleter>;

    explicit PropertyList(Handle root);

    Handle root_;
};

} // namespace brivandel
