#include "cli/listen/ObservedServices.h"

#include <utility>

namespace brivandel {

namespace {

class ObservedRecognizer final : public SpeechRecognizer {
public:
    ObservedRecognizer(std::unique_ptr<SpeechRecognizer> recognizer, ObservedRecognition::Show show)
        : recognizer_(std::move(recognizer))
        , show_(std::move(show)) {
        setVerdictHandler({});
    }

    void setVerdictHandler(VerdictHandler handler) override {
        recognizer_->setVerdictHandler(
            [show = show_.verdict, handler = std::move(handler)](const UtteranceVerdict& verdict) {
                show(verdict);
                if (handler) {
                    handler(verdict);
                }
            });
    }

    void setVocabulary(const RecognitionVocabulary& vocabulary) override {
        recognizer_->setVocabulary(vocabulary);
    }

    std::unique_ptr<SpeechRecognitionTask> startTask(std::shared_ptr<SpeechRecognitionRequest> request,
                                                     ResultHandler handler) override {
        return recognizer_->startTask(std::move(request), [show = show_.result, handler = std::move(handler)](
                                                              const auto& result, const auto& error) {
            if (result) {
                show(*result);
            }
            handler(result, error);
        });
    }

private:
    std::unique_ptr<SpeechRecognizer> recognizer_;
    ObservedRecognition::Show show_;
};

} // namespace

ObservedRecognition::ObservedRecognition(SpeechRecognition& recognition, Show show)
    : recognition_(recognition)
    , show_(std::move(show)) {}

std::unique_ptr<SpeechRecognizer> ObservedRecognition::makeRecognizer(const QString& locale) {
    auto recognizer = recognition_.makeRecognizer(locale);
    return recognizer ? std::make_unique<ObservedRecognizer>(std::move(recognizer), show_) : nullptr;
}

std::shared_ptr<SpeechRecognitionRequest> ObservedRecognition::makeRequest() {
    return recognition_.makeRequest();
}

ObservedScriptHost::ObservedScriptHost(ScriptHost* host, Show show) : host_(host), show_(std::move(show)) {}

std::optional<ScriptErrorDictionary> ObservedScriptHost::run(const QString& source) {
    if (host_ == nullptr) {
        return std::nullopt;
    }
    auto error = host_->run(source);
    show_(error);
    return error;
}

} // namespace brivandel
