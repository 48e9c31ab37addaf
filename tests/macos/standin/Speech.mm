#include "Control.h"
#include "Doubles.h"
#include "Private.h"

#import <AVFoundation/AVFoundation.h>
#import <Speech/Speech.h>

#include <algorithm>
#include <utility>

using namespace standin;

std::vector<std::vector<float>> samplesOf(AVAudioPCMBuffer* buffer);

@implementation SFTranscription {
@public
    NSString* _formattedString;
}
- (NSString*)formattedString {
    return _formattedString;
}
@end

@implementation SFSpeechRecognitionResult {
@public
    SFTranscription* _bestTranscription;
    BOOL _final;
}
- (SFTranscription*)bestTranscription {
    return _bestTranscription;
}
- (BOOL)isFinal {
    return _final;
}
@end

static SFSpeechRecognitionResult* result(const QString& heard, bool isFinal) {
    SFSpeechRecognitionResult* result = [[SFSpeechRecognitionResult alloc] init];
    result->_bestTranscription = [[SFTranscription alloc] init];
    result->_bestTranscription->_formattedString = text(heard);
    result->_final = isFinal;
    return result;
}

@implementation SFSpeechRecognitionRequest
@synthesize shouldReportPartialResults = _shouldReportPartialResults;
@end

static std::vector<std::vector<float>> lastAppended;

@implementation SFSpeechAudioBufferRecognitionRequest
- (void)appendAudioPCMBuffer:(AVAudioPCMBuffer*)audioPCMBuffer {
    const auto samples = samplesOf(audioPCMBuffer);
    lastAppended.resize(std::max(lastAppended.size(), samples.size()));
    for (std::size_t channel = 0; channel < samples.size(); ++channel) {
        lastAppended[channel].insert(lastAppended[channel].end(), samples[channel].begin(),
                                     samples[channel].end());
    }
}
- (void)endAudio {
    world().calls += QStringLiteral("endAudio");
    if (world().duringEndAudio) {
        world().duringEndAudio();
    }
}
@end

std::vector<std::vector<float>> standin::appended() {
    return lastAppended;
}

using ResultHandler = void (^)(SFSpeechRecognitionResult* _Nullable, NSError* _Nullable);

// The tasks that live, in the order of their start. They are not kept: what the adapters let go of is gone.
static std::vector<void*>& tasks() {
    static std::vector<void*> tasks;
    return tasks;
}

@implementation SFSpeechRecognitionTask {
@public
    ResultHandler _handler;
}
- (void)dealloc {
    std::erase(tasks(), (__bridge void*)self);
}
- (void)finish {
    world().calls += QStringLiteral("finish");
}
- (void)cancel {
    world().calls += QStringLiteral("cancel");
    elsewhere([self] { self->_handler(nil, error(QStringLiteral("Recognition request was canceled"))); });
}
@end

static void deliver(SFSpeechRecognitionResult* result, NSError* error, std::size_t before) {
    if (tasks().size() <= before) {
        return;
    }
    auto* task = (__bridge SFSpeechRecognitionTask*)tasks()[tasks().size() - 1 - before];
    elsewhere([&] {
        // The framework holds what it is about to call.
        ResultHandler handler = task->_handler;
        handler(result, error);
    });
}

void standin::hear(const QString& heard, bool isFinal) {
    @autoreleasepool {
        deliver(result(heard, isFinal), nil, 0);
    }
}

void standin::failRecognition(const QString& description, int sessionsBefore) {
    @autoreleasepool {
        deliver(nil, error(description), static_cast<std::size_t>(sessionsBefore));
    }
}

void standin::hearAndFail(const QString& heard, const QString& description) {
    @autoreleasepool {
        deliver(result(heard, false), error(description), 0);
    }
}

const void* standin::newestSession() {
    return tasks().empty() ? nullptr : tasks().back();
}

void standin::deliverTo(const void* session, const std::optional<QString>& heard, bool isFinal,
                        const std::optional<QString>& failure) {
    @autoreleasepool {
        const auto found = std::ranges::find(tasks(), session);
        if (found != tasks().end()) {
            deliver(heard ? result(*heard, isFinal) : nil, failure ? error(*failure) : nil,
                    static_cast<std::size_t>(tasks().end() - found) - 1);
        }
    }
}

static std::vector<void (^)(SFSpeechRecognizerAuthorizationStatus)>& authorizationHandlers() {
    static std::vector<void (^)(SFSpeechRecognizerAuthorizationStatus)> handlers;
    return handlers;
}

@implementation SFSpeechRecognizer
@synthesize queue = _queue;
@synthesize supportsOnDeviceRecognition = _supportsOnDeviceRecognition;
+ (SFSpeechRecognizerAuthorizationStatus)authorizationStatus {
    return static_cast<SFSpeechRecognizerAuthorizationStatus>(world().speechStatus);
}
+ (void)requestAuthorization:(void (^)(SFSpeechRecognizerAuthorizationStatus))handler {
    world().calls += QStringLiteral("request speech");
    authorizationHandlers().push_back([handler copy]);
}
- (instancetype)init {
    return [self initWithLocale:[NSLocale localeWithLocaleIdentifier:@"en-US"]];
}
- (instancetype)initWithLocale:(NSLocale*)locale {
    if (!world().locales.contains(characters([locale identifier]))) {
        return nil;
    }
    if ((self = [super init]) != nil) {
        _supportsOnDeviceRecognition = world().recognizesHere;
    }
    return self;
}
- (BOOL)isAvailable {
    return world().isRecognizerAvailable;
}
- (SFSpeechRecognitionTask*)recognitionTaskWithRequest:(SFSpeechRecognitionRequest*)request
                                         resultHandler:(ResultHandler)resultHandler {
    world().calls += QStringLiteral("task partial=%1 queue=%2")
                         .arg(request.shouldReportPartialResults ? 1 : 0)
                         .arg(_queue == nil ? 0 : _queue.maxConcurrentOperationCount);
    lastAppended.clear();
    SFSpeechRecognitionTask* task = [[SFSpeechRecognitionTask alloc] init];
    task->_handler = [resultHandler copy];
    tasks().push_back((__bridge void*)task);
    return task;
}
@end

void standin::answerSpeech(int status) {
    elsewhere([&] {
        for (const auto& handler : std::exchange(authorizationHandlers(), {})) {
            handler(static_cast<SFSpeechRecognizerAuthorizationStatus>(status));
        }
    });
}
