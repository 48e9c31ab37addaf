#include "platform/linux/recognition/InlineSpeechRecognition.h"

#include "platform/linux/recognition/DecoderPool.h"
#include "platform/linux/recognition/MonoView.h"
#include "platform/linux/recognition/RecognitionSession.h"
#include "platform/linux/recognition/SoundInput.h"

#include <utility>
#include <vector>

namespace brivandel {

namespace {

class InlineRequest final : public SpeechRecognitionRequest {
public:
    void setShouldReportPartialResults(bool report) override {
        reporting_ = report ? RecognitionSession::Reporting::PartialResults
                            : RecognitionSession::Reporting::FinalResultOnly;
    }

    void append(const AudioBuffer& buffer) override {
        const MonoView mono(buffer);
        if (audioEnded_ || mono.frameCount() == 0) {
            return;
        }
        sampleRateHz_ = buffer.sampleRateHz;
        for (std::size_t i = 0; i < mono.frameCount(); ++i) {
            waiting_.push_back(mono[i]);
        }
        processWaiting();
        finishIfOver();
    }

    void endAudio() override {
        audioEnded_ = true;
        finishIfOver();
    }

    void start(const RecognitionSession::LeaseDecoder& lease, SpeechRecognizer::ResultHandler deliver,
               SpeechRecognizer::VerdictHandler judge) {
        RecognitionSession::Handlers handlers;
        handlers.deliver = [this, deliver = std::move(deliver)](const auto& result, const auto& error) {
            if (!cancelled_) {
                deliver(result, error);
            }
        };
        handlers.judge = [this, judge = std::move(judge)](const UtteranceVerdict& verdict) {
            if (!cancelled_ && judge) {
                judge(verdict);
            }
        };
        input_ = std::make_unique<SoundInput>(RecognitionSession(reporting_, lease, std::move(handlers)));
        processWaiting();
        finishIfOver();
    }

    void cancel() {
        cancelled_ = true;
        audioEnded_ = true;
    }

private:
    void processWaiting() {
        if (input_) {
            busy_ = true;
            if (!waiting_.empty()) {
                input_->process(waiting_, sampleRateHz_);
            }
            busy_ = false;
            waiting_.clear();
        }
    }

    /// The handler may end the session from within a call to it.
    void finishIfOver() {
        if (audioEnded_ && !busy_ && !cancelled_ && input_) {
            busy_ = true;
            input_->finish(RecognitionSession::Ending::Complete);
            busy_ = false;
        }
    }

    RecognitionSession::Reporting reporting_ = RecognitionSession::Reporting::PartialResults;
    std::unique_ptr<SoundInput> input_;
    std::vector<float> waiting_;
    double sampleRateHz_ = 0;
    bool busy_ = false;
    bool audioEnded_ = false;
    bool cancelled_ = false;
};

class InlineTask final : public SpeechRecognitionTask {
public:
    explicit InlineTask(std::shared_ptr<InlineRequest> request) : request_(std::move(request)) {}

    void finish() override { request_->endAudio(); }
    void cancel() override { request_->cancel(); }

private:
    std::shared_ptr<InlineRequest> request_;
};

class InlineRecognizer final : public SpeechRecognizer {
public:
    explicit InlineRecognizer(std::shared_ptr<DecoderPool> pool)
        : pool_(std::move(pool))
        , vocabulary_(std::make_shared<RecognitionVocabulary>()) {}

    void setVocabulary(const RecognitionVocabulary& vocabulary) override { *vocabulary_ = vocabulary; }
    void setVerdictHandler(VerdictHandler handler) override { judge_ = std::move(handler); }

    std::unique_ptr<SpeechRecognitionTask> startTask(std::shared_ptr<SpeechRecognitionRequest> request,
                                                     ResultHandler handler) override {
        auto ours = std::dynamic_pointer_cast<InlineRequest>(std::move(request));
        if (!ours) {
            return nullptr;
        }
        // Looked at for each utterance, so that a new vocabulary is in force in a running session too.
        const auto lease = [pool = pool_, vocabulary = vocabulary_] {
            return RecognitionSession::Lease{pool->lend(*vocabulary), vocabulary->wakePhraseRequired};
        };
        auto task = std::make_unique<InlineTask>(ours);
        ours->start(lease, std::move(handler), judge_);
        return task;
    }

private:
    std::shared_ptr<DecoderPool> pool_;
    std::shared_ptr<RecognitionVocabulary> vocabulary_;
    VerdictHandler judge_;
};

} // namespace

InlineSpeechRecognition::InlineSpeechRecognition(ModelFiles files)
    : files_(std::move(files))
    , pool_(std::make_shared<DecoderPool>(files_)) {}

InlineSpeechRecognition::~InlineSpeechRecognition() = default;

std::unique_ptr<SpeechRecognizer> InlineSpeechRecognition::makeRecognizer(const QString& locale) {
    return ModelFiles::speaks(locale) && !files_.problem() ? std::make_unique<InlineRecognizer>(pool_)
                                                           : nullptr;
}

std::shared_ptr<SpeechRecognitionRequest> InlineSpeechRecognition::makeRequest() {
    return std::make_shared<InlineRequest>();
}

} // namespace brivandel
