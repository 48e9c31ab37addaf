#pragma once

#include "platform/Beeper.h"
#include "platform/DiagnosticLog.h"

#include <memory>
#include <thread>

namespace brivandel {

/// The bell of the desktop's sound theme; a tone of its own where the theme has none. Playing waits for the
/// sound server, so a thread does it; beeps that come while one is being played to the server become one.
class SoundThemeBeeper final : public Beeper {
public:
    /// The log is told the first time that nothing can be heard.
    explicit SoundThemeBeeper(DiagnosticLog& log);
    /// Waits a second at most: a sound server that hangs does not keep the program from ending.
    ~SoundThemeBeeper() override;

    void beep() override;

private:
    struct Shared;
    static void serve(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> shared_;
};

} // namespace brivandel
