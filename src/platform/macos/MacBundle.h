#pragma once

#include <QString>

namespace brivandel {

/// The identifier of the bundle that the program runs in; empty when it runs outside one, where some services
/// of the system do not serve it.
[[nodiscard]] QString bundleIdentifier();

/// The Library folder in the user's home.
[[nodiscard]] QString userLibraryFolder();

} // namespace brivandel
