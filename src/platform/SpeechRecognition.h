#pragma once

#include "platform/AudioFormat.h"
#include "platform/RecognitionVocabulary.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace brivandel {

/// The sound of one recognition session.
class SpeechRecognitionRequest {
public:
    virtual ~SpeechRecognitionRequest() = default;
    /// Main thread, before the task is started.
    virtual void setShouldReportPartialResults(bool report) = 0;
    /// Audio thread: copies the samples and returns; takes no lock.
    virtual void append(const AudioBuffer& buffer) = 0;
    /// No more sound will come. Main thread.
    virtual void endAudio() = 0;
};

/// The best transcription so far: of the whole session, not of the last utterance alone.
struct RecognitionResult {
    QString formattedString;
    bool isFinal = false;
};

/// Why one utterance was taken for a phrase, or was not: for people who wonder what was heard.
struct UtteranceVerdict {
    /// The phrase that came nearest; never empty.
    QString text;
    /// Whether it was delivered.
    bool isAccepted = false;
    /// How sure the recogniser was, in its own units: larger is surer.
    double score = 0;
    QString reason;
};

/// A running recognition. Letting go of it ends nothing: what was finished still delivers. A session that was
/// neither finished nor cancelled ends silently once nobody holds its request. Main thread.
class SpeechRecognitionTask {
public:
    virtual ~SpeechRecognitionTask() = default;
    /// Ends the session; what was already heard is still delivered.
    virtual void finish() = 0;
    /// Ends the session; nothing more is delivered.
    virtual void cancel() = 0;
};

class SpeechRecognizer {
public:
    /// Called on the recogniser's own thread, in order. Either may be there, or both; an error ends the
    /// session.
    using ResultHandler =
        std::function<void(const std::optional<RecognitionResult>&, const std::optional<QString>& error)>;
    /// Called on the recogniser's own thread, after the utterance's result if it has one.
    using VerdictHandler = std::function<void(const UtteranceVerdict&)>;

    virtual ~SpeechRecognizer() = default;
    /// In force from the next utterance on, in a running session too. Main thread.
    virtual void setVocabulary(const RecognitionVocabulary& vocabulary) = 0;
    /// In force for the tasks that are started afterwards. A recogniser that gives no reasons never calls it.
    /// Main thread.
    virtual void setVerdictHandler(VerdictHandler /*handler*/) {}
    /// Starts recognising what is appended to the request. Main thread; returns at once.
    [[nodiscard]] virtual std::unique_ptr<SpeechRecognitionTask>
    startTask(std::shared_ptr<SpeechRecognitionRequest> request, ResultHandler handler) = 0;
};

/// Makes the two parts of a recognition. Main thread.
class SpeechRecognition {
public:
    virtual ~SpeechRecognition() = default;
    /// None when this system cannot recognise that locale (BCP 47, as in "en-US").
    [[nodiscard]] virtual std::unique_ptr<SpeechRecognizer> makeRecognizer(const QString& locale) = 0;
    /// None when a request cannot be made.
    [[nodiscard]] virtual std::shared_ptr<SpeechRecognitionRequest> makeRequest() = 0;
};

} // namespace brivandel
