#pragma once

#include <QString>

#include <optional>

namespace brivandel {

/// The first file of an acoustic model that is cut off or damaged, as its path; none when all are whole. The
/// engine does not survive such files: some end the process, some are read beyond their end. Files that
/// cannot be read at all count as damaged. Any thread; reads 2 MB.
[[nodiscard]] std::optional<QString> damagedFileOf(const QString& acousticModel);

} // namespace brivandel
