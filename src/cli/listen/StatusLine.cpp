#include "cli/listen/StatusLine.h"

#include "cli/listen/TerminalText.h"
#include "listening/VoiceController.h"

#include <chrono>
#include <cmath>
#include <ostream>
#include <utility>

namespace brivandel {

using namespace std::chrono_literals;

StatusLine::StatusLine(const VoiceController& controller, std::ostream& out, std::function<int()> columns)
    : controller_(controller)
    , out_(out)
    , columns_(std::move(columns)) {
    constexpr auto interval = 66ms;
    redraw_.setSingleShot(true);
    redraw_.setInterval(interval);
    connect(&controller, &VoiceController::objectWillChange, this, [this] {
        if (!redraw_.isActive()) {
            redraw_.start();
        }
    });
    connect(&redraw_, &QTimer::timeout, this, [this] { draw(); });
}

StatusLine::~StatusLine() {
    erase();
}

void StatusLine::erase() {
    out_ << "\r\x1b[K" << std::flush;
}

void StatusLine::draw() {
    constexpr int meterWidth = 20;
    const auto filled = static_cast<int>(std::lround(controller_.audioLevel() * float{meterWidth}));
    const QString line = (controller_.isAwake() ? QStringLiteral("◉ ") : QStringLiteral("○ ")) +
                         QString(filled, u'▮') + QString(meterWidth - filled, u'▯') + QStringLiteral("  ") +
                         controller_.statusMessage();
    // The last column stays free: a terminal that is filled to the edge may begin a new line.
    out_ << "\r\x1b[K" << fittedTo(columns_() - 1, line).toStdString() << std::flush;
}

} // namespace brivandel
