#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace brivandel {

/// Bytes as text. The first says how the others are to be read: as UTF-8, or as UTF-16 units as they come,
/// halves of pairs included.
[[nodiscard]] inline QString fuzzText(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return {};
    }
    const bool isUtf16 = data[0] % 2 != 0;
    const QByteArrayView bytes(data + 1, static_cast<qsizetype>(size) - 1);
    if (!isUtf16) {
        return QString::fromUtf8(bytes);
    }
    QString text(bytes.size() / static_cast<qsizetype>(sizeof(char16_t)), Qt::Uninitialized);
    std::memcpy(text.data(), bytes.data(), static_cast<std::size_t>(text.size()) * sizeof(char16_t));
    return text;
}

} // namespace brivandel
