#pragma once

#include <QObject>
#include <QTimer>

#include <functional>
#include <iosfwd>

namespace brivandel {

class VoiceController;

/// The line at the bottom of a terminal: awake or not, level, status. Drawn again after a change, at most
/// fifteen times a second, and never wider than the terminal, which would break it into lines that stay.
class StatusLine final : public QObject {
public:
    /// columns gives the width of the terminal, asked at each drawing: a window is resized while it listens.
    StatusLine(const VoiceController& controller, std::ostream& out, std::function<int()> columns);
    ~StatusLine() override;
    Q_DISABLE_COPY_MOVE(StatusLine)

    void draw();
    void erase();

private:
    const VoiceController& controller_;
    std::ostream& out_;
    std::function<int()> columns_;
    QTimer redraw_;
};

} // namespace brivandel
