#pragma once

#include "platform/Lifeline.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <memory>

namespace brivandel {

class MainQueue;
class TargetInquiry;
class Timer;
class WorkQueue;

/// Knows which workstation a command would go to, as a sentence for a person. Workstations come and go
/// without a word, so it asks now and then, off the main thread. Main thread.
class TargetWatch final : public QObject {
    Q_OBJECT
public:
    /// How old the answer may be when somebody looks at it: longer than a workstation takes to start.
    static constexpr std::chrono::seconds interval{15};

    /// target: asked on the work queue, one question at a time. All three outlive this, and the work that is
    /// on the queue.
    TargetWatch(MainQueue& mainQueue, WorkQueue& workQueue, const TargetInquiry& target);
    ~TargetWatch() override;

    void begin();
    /// Empty until the first answer.
    [[nodiscard]] const QString& sentence() const { return sentence_; }

Q_SIGNALS:
    void changed();

private:
    void takeAnswer(const QString& sentence);

    MainQueue& mainQueue_;
    WorkQueue& workQueue_;
    const TargetInquiry& target_;
    QString sentence_;
    std::unique_ptr<Timer> untilNext_;
    Lifeline lifeline_;
};

} // namespace brivandel
