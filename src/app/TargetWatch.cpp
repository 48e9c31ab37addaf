#include "app/TargetWatch.h"

#include "platform/MainQueue.h"
#include "platform/WorkQueue.h"

#include <utility>

namespace brivandel {

TargetWatch::TargetWatch(MainQueue& mainQueue, WorkQueue& workQueue, std::function<QString()> ask)
    : mainQueue_(mainQueue)
    , workQueue_(workQueue)
    , ask_(std::move(ask)) {}

TargetWatch::~TargetWatch() = default;

void TargetWatch::begin() {
    auto answered = lifeline_.guard([this](const QString& sentence) { takeAnswer(sentence); });
    workQueue_.run([&queue = mainQueue_, ask = ask_, answered = std::move(answered)] {
        queue.post([answered, sentence = ask()]() mutable { answered(sentence); });
    });
}

void TargetWatch::takeAnswer(const QString& sentence) {
    if (sentence_ != sentence) {
        sentence_ = sentence;
        Q_EMIT changed();
    }
    untilNext_ = mainQueue_.startTimer(interval, [this] { begin(); });
}

} // namespace brivandel
