#include "app/TargetWatch.h"

#include "platform/MainQueue.h"
#include "platform/Targets.h"
#include "platform/WorkQueue.h"

#include <utility>

namespace brivandel {

TargetWatch::TargetWatch(MainQueue& mainQueue, WorkQueue& workQueue, const TargetInquiry& target)
    : mainQueue_(mainQueue)
    , workQueue_(workQueue)
    , target_(target) {}

TargetWatch::~TargetWatch() = default;

void TargetWatch::begin() {
    auto answered = lifeline_.guard([this](const QString& sentence) { takeAnswer(sentence); });
    workQueue_.run([&queue = mainQueue_, &target = target_, answered = std::move(answered)] {
        queue.post([answered, sentence = target.inWords()]() mutable { answered(sentence); });
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
