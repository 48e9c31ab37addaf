#include "platform/linux/defaults/BinaryTexts.h"

#include <cstdint>

namespace brivandel {

namespace {

// The last 32 bytes: sizes of an offset and a reference, then three numbers of 64 bits, the first byte first.
constexpr qsizetype trailerSize = 32;
constexpr qsizetype offsetSizePlace = 6;
constexpr qsizetype objectCountPlace = 8;
constexpr qsizetype offsetTablePlace = 24;
constexpr int numberSize = 8;

std::uint64_t number(QByteArrayView bytes, qsizetype place, int size) {
    std::uint64_t value = 0;
    for (int index = 0; index < size; ++index) {
        value = value << 8U | static_cast<std::uint8_t>(bytes.at(place + index));
    }
    return value;
}

bool hasZero(QByteArrayView text, int unitSize) {
    for (qsizetype at = 0; at + unitSize <= text.size(); at += unitSize) {
        if (number(text, at, unitSize) == 0) {
            return true;
        }
    }
    return false;
}

// An object begins with its kind and length; a length of 15 says that a number with it follows.
bool isBrokenText(QByteArrayView object) {
    constexpr int ascii = 5;
    constexpr int utf16 = 6;
    constexpr std::uint8_t lengthFollows = 15;
    const auto marker = static_cast<std::uint8_t>(object.front());
    const int kind = marker >> 4U;
    if (kind != ascii && kind != utf16) {
        return false;
    }
    std::uint64_t length = marker & 15U;
    qsizetype begin = 1;
    if (length == lengthFollows) {
        if (object.size() < 2) {
            return true;
        }
        const int size = 1 << (static_cast<std::uint8_t>(object.at(1)) & 3U);
        begin = 2 + size;
        if (object.size() < begin) {
            return true;
        }
        length = number(object, 2, size);
    }
    const int unitSize = kind == ascii ? 1 : 2;
    const auto room = static_cast<std::uint64_t>(object.size() - begin);
    if (length > room / static_cast<std::uint64_t>(unitSize)) {
        return true;
    }
    return hasZero(object.sliced(begin, static_cast<qsizetype>(length) * unitSize), unitSize);
}

} // namespace

bool hasBrokenText(QByteArrayView binary) {
    if (binary.size() < trailerSize) {
        return true;
    }
    const QByteArrayView trailer = binary.last(trailerSize);
    const int offsetSize = static_cast<unsigned char>(trailer.at(offsetSizePlace));
    const std::uint64_t objectCount = number(trailer, objectCountPlace, numberSize);
    const std::uint64_t table = number(trailer, offsetTablePlace, numberSize);
    const auto size = static_cast<std::uint64_t>(binary.size());
    if (offsetSize < 1 || offsetSize > numberSize || table > size ||
        objectCount > (size - table) / static_cast<std::uint64_t>(offsetSize)) {
        return true;
    }
    for (std::uint64_t object = 0; object < objectCount; ++object) {
        const auto entry = static_cast<qsizetype>(table) + static_cast<qsizetype>(object) * offsetSize;
        const std::uint64_t offset = number(binary, entry, offsetSize);
        if (offset >= size || isBrokenText(binary.sliced(static_cast<qsizetype>(offset)))) {
            return true;
        }
    }
    return false;
}

} // namespace brivandel
