#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <utility>
#include <variant>
#include <vector>

namespace brivandel {

/// What is wrong with a text, and where.
struct TextFault {
    QString sentence;
    int line = 1;   ///< from 1
    int column = 1; ///< from 1, in characters
    bool operator==(const TextFault&) const = default;
};

/// A JSON value that knows where it stands, so that a fault of its meaning can be told by its place.
struct PlacedJson {
    struct Member;
    struct Other {}; ///< true, false, null, a number that is none of the following
    using Number = std::uint64_t;
    using Array = std::vector<PlacedJson>;
    using Object = std::vector<Member>;

    std::variant<Other, QString, Number, Array, Object> value;
    /// Its first byte in the text, from 0.
    std::size_t offset = 0;
};

struct PlacedJson::Member {
    QString key;
    std::size_t keyOffset = 0;
    PlacedJson value;
};

/// Reads JSON with comments. Pure; any thread.
[[nodiscard]] std::variant<PlacedJson, TextFault> parsePlacedJson(const QByteArray& text);

/// The fault at that byte of the text.
[[nodiscard]] TextFault faultAt(const QByteArray& text, std::size_t offset, const QString& sentence);

} // namespace brivandel
