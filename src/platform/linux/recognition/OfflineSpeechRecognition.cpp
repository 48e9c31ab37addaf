#include "platform/linux/recognition/OfflineSpeechRecognition.h"

#include <utility>

namespace brivandel {

namespace {

class OfflineRequest final : public SpeechRecognitionRequest {
public:
    explicit OfflineRequest(const std::shared_ptr<WakeUp>& wakeUp)
        : sound_(std::make_shared<SoundStream>(wakeUp)) {}
    /// On the audio thread, when the tap is the last to hold it.
    ~OfflineRequest() override { sound_->abandon(); }
    Q_DISABLE_COPY_MOVE(OfflineRequest)

    void setShouldReportPartialResults(bool report) override {
        reporting_ = report ? RecognitionSession::Reporting::PartialResults
                            : RecognitionSession::Reporting::FinalResultOnly;
    }
    void append(const AudioBuffer& buffer) override { sound_->append(buffer); }
    void endAudio() override { sound_->end(); }

    [[nodiscard]] const std::shared_ptr<SoundStream>& sound() const { return sound_; }
    [[nodiscard]] RecognitionSession::Reporting reporting() const { return reporting_; }

private:
    std::shared_ptr<SoundStream> sound_;
    RecognitionSession::Reporting reporting_ = RecognitionSession::Reporting::PartialResults;
};

class OfflineTask final : public SpeechRecognitionTask {
public:
    OfflineTask(std::shared_ptr<SoundStream> sound, std::shared_ptr<Delivery> delivery)
        : sound_(std::move(sound))
        , delivery_(std::move(delivery)) {}

    void finish() override { sound_->end(); }
    void cancel() override {
        delivery_->close();
        // Wakes the thread, which then forgets the session.
        sound_->end();
    }

private:
    std::shared_ptr<SoundStream> sound_;
    std::shared_ptr<Delivery> delivery_;
};

class OfflineRecognizer final : public SpeechRecognizer {
public:
    explicit OfflineRecognizer(RecognizerThread& thread)
        : thread_(thread)
        , vocabulary_(std::make_shared<VocabularyInForce>()) {}

    void setVocabulary(const RecognitionVocabulary& vocabulary) override {
        vocabulary_->set(vocabulary);
        thread_.prepare(vocabulary);
    }

    void setVerdictHandler(VerdictHandler handler) override { judge_ = std::move(handler); }

    std::unique_ptr<SpeechRecognitionTask> startTask(std::shared_ptr<SpeechRecognitionRequest> request,
                                                     ResultHandler handler) override {
        const auto ours = std::dynamic_pointer_cast<OfflineRequest>(std::move(request));
        if (!ours) {
            return nullptr;
        }
        auto delivery = std::make_shared<Delivery>(std::move(handler), judge_);
        thread_.start({ours->sound(), delivery, ours->reporting(), vocabulary_});
        return std::make_unique<OfflineTask>(ours->sound(), std::move(delivery));
    }

private:
    RecognizerThread& thread_;
    std::shared_ptr<VocabularyInForce> vocabulary_;
    VerdictHandler judge_;
};

} // namespace

OfflineSpeechRecognition::OfflineSpeechRecognition(ModelFiles files, RecognizerThread::Clock clock)
    : files_(std::move(files))
    , clock_(std::move(clock)) {}

RecognizerThread& OfflineSpeechRecognition::thread() {
    if (!thread_) {
        thread_ = std::make_unique<RecognizerThread>(files_, clock_);
    }
    return *thread_;
}

std::unique_ptr<SpeechRecognizer> OfflineSpeechRecognition::makeRecognizer(const QString& locale) {
    if (!ModelFiles::speaks(locale) || files_.problem()) {
        return nullptr;
    }
    return std::make_unique<OfflineRecognizer>(thread());
}

std::shared_ptr<SpeechRecognitionRequest> OfflineSpeechRecognition::makeRequest() {
    return std::make_shared<OfflineRequest>(thread().wakeUp());
}

} // namespace brivandel
