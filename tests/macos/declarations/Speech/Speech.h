// What the adapters use of Speech, written from its public documentation. Each declaration names its page.
// Read a second time, against its pages and the published bindings of others: all.
#pragma once
#include <Foundation/Foundation.h>
NS_ASSUME_NONNULL_BEGIN

@class AVAudioPCMBuffer;

// Speech: SFSpeechRecognizerAuthorizationStatus
typedef NS_ENUM(NSInteger, SFSpeechRecognizerAuthorizationStatus) {
    SFSpeechRecognizerAuthorizationStatusNotDetermined,
    SFSpeechRecognizerAuthorizationStatusDenied,
    SFSpeechRecognizerAuthorizationStatusRestricted,
    SFSpeechRecognizerAuthorizationStatusAuthorized,
};

// Speech: SFTranscription
@interface SFTranscription : NSObject
@property (nonatomic, readonly, copy) NSString* formattedString; // formattedString
@end

// Speech: SFSpeechRecognitionResult
@interface SFSpeechRecognitionResult : NSObject
@property (nonatomic, readonly, copy) SFTranscription* bestTranscription; // bestTranscription
@property (nonatomic, readonly, getter=isFinal) BOOL final;               // final
@end

// Speech: SFSpeechRecognitionRequest
@interface SFSpeechRecognitionRequest : NSObject
@property (nonatomic) BOOL shouldReportPartialResults; // shouldReportPartialResults
@end

// Speech: SFSpeechAudioBufferRecognitionRequest
@interface SFSpeechAudioBufferRecognitionRequest : SFSpeechRecognitionRequest
- (void)appendAudioPCMBuffer:(AVAudioPCMBuffer*)audioPCMBuffer; // appendAudioPCMBuffer:
- (void)endAudio;                                               // endAudio
@end

// Speech: SFSpeechRecognitionTask
@interface SFSpeechRecognitionTask : NSObject
- (void)finish; // finish
- (void)cancel; // cancel
@end

// Speech: SFSpeechRecognizer
@interface SFSpeechRecognizer : NSObject
+ (SFSpeechRecognizerAuthorizationStatus)authorizationStatus;                                    // authorizationStatus
+ (void)requestAuthorization:(void (^)(SFSpeechRecognizerAuthorizationStatus status))handler;    // requestAuthorization:
- (nullable instancetype)init;                                                                   // init
- (nullable instancetype)initWithLocale:(NSLocale*)locale NS_DESIGNATED_INITIALIZER;             // initWithLocale:
@property (nonatomic, readonly, getter=isAvailable) BOOL available;                              // available
@property (nonatomic) BOOL supportsOnDeviceRecognition;                                          // supportsOnDeviceRecognition
@property (nonatomic, strong) NSOperationQueue* queue;                                           // queue
// recognitionTaskWithRequest:resultHandler:
- (SFSpeechRecognitionTask*)
    recognitionTaskWithRequest:(SFSpeechRecognitionRequest*)request
                 resultHandler:(void (^)(SFSpeechRecognitionResult* _Nullable result, NSError* _Nullable error))resultHandler;
@end

NS_ASSUME_NONNULL_END
