// Any bytes as a sound file: blocks are as long as asked for at most, with as many channels as the file says.

#include "Require.h"
#include "cli/WaveFile.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>

namespace {

// A file in memory, for as long as it is open.
class MemoryFile {
public:
    MemoryFile(const std::uint8_t* data, std::size_t size) : descriptor_(memfd_create("sound", 0)) {
        brivandel::require(descriptor_ >= 0 && write(descriptor_, data, size) == static_cast<ssize_t>(size),
                           "the file is there");
    }
    ~MemoryFile() { close(descriptor_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

private:
    int descriptor_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brivandel;
    constexpr std::uint32_t asked = 1024;
    constexpr int mostBlocks = 200; // a few bytes may promise hours
    const MemoryFile memory(data, size);
    auto opened = WaveFile::open(memory.path());
    auto* file = std::get_if<WaveFile>(&opened);
    if (file == nullptr) {
        require(!std::get<QString>(opened).isEmpty(), "a refusal says why");
        return 0;
    }
    for (int block = 0; block < mostBlocks; ++block) {
        const auto buffer = file->read(asked);
        if (!buffer) {
            break;
        }
        require(buffer->frameLength > 0 && buffer->frameLength <= asked,
                "a block is as long as asked at most");
        require(buffer->channels.size() == file->format().channelCount, "a block has every channel");
        float sum = 0;
        for (const float* channel : buffer->channels) {
            for (std::uint32_t frame = 0; frame < buffer->frameLength; ++frame) {
                sum += channel[frame];
            }
        }
        static_cast<void>(sum);
    }
    return 0;
}
