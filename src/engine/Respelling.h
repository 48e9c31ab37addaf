#pragma once

#include <QString>
#include <QStringView>

namespace brivandel {

/// How phones (ARPAbet, parted by spaces) would be read aloud by somebody who never learned to read phones,
/// as in "kwahn-tighz" for "K W AA N T AY Z". Phones that are none are left out.
[[nodiscard]] QString respelled(QStringView phones);

} // namespace brivandel
