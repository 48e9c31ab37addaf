#include "platform/linux/recognition/RecognizerThread.h"

#include "platform/linux/recognition/DecoderPool.h"
#include "platform/linux/recognition/LiveSession.h"

#include <algorithm>
#include <utility>

namespace brivandel {

RecognizerThread::RecognizerThread(const ModelFiles& files, Clock clock)
    : clock_(std::move(clock))
    , wakeUp_(std::make_shared<WakeUp>())
    , thread_([this, files] { run(files); }) {}

RecognizerThread::~RecognizerThread() {
    {
        const std::lock_guard lock(mutex_);
        orders_.stop = true;
    }
    wakeUp_->wake();
    thread_.join();
}

void RecognizerThread::start(Session session) {
    {
        const std::lock_guard lock(mutex_);
        orders_.sessions.emplace_back(std::move(session), clock_());
    }
    wakeUp_->wake();
}

void RecognizerThread::prepare(const RecognitionVocabulary& vocabulary) {
    {
        const std::lock_guard lock(mutex_);
        orders_.vocabulary = vocabulary;
    }
    wakeUp_->wake();
}

RecognizerThread::Orders RecognizerThread::takeOrders() {
    const std::lock_guard lock(mutex_);
    Orders taken = std::exchange(orders_, {});
    orders_.stop = taken.stop;
    return taken;
}

void RecognizerThread::run(const ModelFiles& files) {
    const auto pool = std::make_shared<DecoderPool>(files);
    std::vector<std::unique_ptr<LiveSession>> sessions;
    for (;;) {
        Orders orders = takeOrders();
        if (orders.stop) {
            return;
        }
        for (const auto& [session, startedAt] : orders.sessions) {
            const auto lease = [pool, inForce = session.vocabulary] {
                const RecognitionVocabulary vocabulary = inForce->get();
                return RecognitionSession::Lease{pool->lend(vocabulary), vocabulary.wakePhraseRequired};
            };
            sessions.push_back(std::make_unique<LiveSession>(session.sound, session.delivery,
                                                             session.reporting, lease, startedAt));
        }
        if (orders.vocabulary) {
            pool->prepare(*orders.vocabulary);
        }

        std::erase_if(sessions, [this](const auto& session) { return !session->step(clock_); });

        const MainQueue::TimePoint now = clock_();
        MainQueue::TimePoint deadline = now + LiveSession::starvation;
        for (const auto& session : sessions) {
            deadline = std::min(deadline, session->deadline());
        }
        wakeUp_->wait(std::chrono::ceil<std::chrono::milliseconds>(deadline - now));
    }
}

} // namespace brivandel
