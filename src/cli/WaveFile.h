#pragma once

#include "platform/AudioFormat.h"

#include <QString>

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace brivandel {

/// Sound read from a file, in blocks as a tap would get them.
class WaveFile {
public:
    /// The file, or in words why there is no sound to be had from it: not there, no sound file, empty, cut
    /// off.
    [[nodiscard]] static std::variant<WaveFile, QString> open(const std::string& path);

    [[nodiscard]] const AudioFormat& format() const { return format_; }

    /// The next block of at most frameCount frames, valid until the next call; none at the end.
    [[nodiscard]] std::optional<AudioBuffer> read(std::uint32_t frameCount);

private:
    struct Closer {
        void operator()(void* file) const;
    };
    using Handle = std::unique_ptr<void, Closer>;

    WaveFile(Handle file, const AudioFormat& format);

    Handle file_;
    AudioFormat format_;
    std::vector<float> interleaved_;
    std::vector<std::vector<float>> channels_;
    std::vector<const float*> pointers_;
};

} // namespace brivandel
