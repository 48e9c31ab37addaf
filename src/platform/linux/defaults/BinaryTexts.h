#pragma once

#include <QByteArrayView>

namespace brivandel {

/// Whether a text in a binary property list has a zero in it, or reaches beyond the list. The library that
/// reads lists ends the program when such a text is a key and is asked for. The list must be one that the
/// library has written.
[[nodiscard]] bool hasBrokenText(QByteArrayView binary);

} // namespace brivandel
