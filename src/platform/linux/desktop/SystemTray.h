#pragma once

namespace brivandel {

/// Whether the X display has a tray of the older kind, the one that programs put a window into. False without
/// a display.
[[nodiscard]] bool hasXEmbedTray();

} // namespace brivandel
