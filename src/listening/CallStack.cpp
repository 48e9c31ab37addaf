#include "listening/CallStack.h"

#include <QStringList>

#include <execinfo.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

namespace brivandel {

QString callStackSymbols(int frameCount) {
    constexpr int ownFrames = 1;
    std::array<void*, 64> frames{};
    const int wanted = std::min(frameCount + ownFrames, static_cast<int>(frames.size()));
    const int found = backtrace(frames.data(), wanted);

    const std::unique_ptr<char*, decltype(&std::free)> symbols(backtrace_symbols(frames.data(), found),
                                                               &std::free);
    QStringList lines;
    for (int index = ownFrames; symbols && index < found; ++index) {
        lines += QString::fromLocal8Bit(symbols.get()[index]);
    }
    return lines.join(u'\n');
}

} // namespace brivandel
