#pragma once

#include <QObject>

#include <functional>

namespace brivandel {

/// What ends a program that another one runs: SIGTERM and SIGINT, and the end of its standard input. Lines
/// that come before that end are handed out. Main thread, and inside an application.
class Ending : public QObject {
public:
    /// To be called before the program has a second thread, which would be given the signals instead.
    static void takeSignals();

    Ending(std::function<void(const QByteArray& line)> lineRead, std::function<void()> ended);
    ~Ending() override;
    Ending(const Ending&) = delete;
    Ending& operator=(const Ending&) = delete;

private:
    void readInput();

    std::function<void(const QByteArray& line)> lineRead_;
    std::function<void()> ended_;
    int signals_ = -1;
    QByteArray unread_;
};

} // namespace brivandel
