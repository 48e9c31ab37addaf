#include "cli/listen/FileAudioEngine.h"

#include <utility>

namespace brivandel {

FileAudioEngine::FileAudioEngine(const AudioFormat& format) : format_(format) {}

void FileAudioEngine::installTap(std::uint32_t /*bufferSizeFrames*/, const AudioFormat& /*format*/,
                                 TapBlock block) {
    tap_ = std::move(block);
}

std::optional<QString> FileAudioEngine::start() {
    isRunning_ = true;
    return std::nullopt;
}

void FileAudioEngine::feed(const AudioBuffer& buffer) const {
    if (isRunning_ && tap_) {
        tap_(buffer);
    }
}

} // namespace brivandel
