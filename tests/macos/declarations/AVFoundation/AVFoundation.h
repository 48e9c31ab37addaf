// What the adapters use of AVFAudio and AVFoundation, written from their public documentation. Each declaration names its
// page.
// Read a second time, against their pages and the published bindings of others: all.
#pragma once
#include <AudioToolbox/AudioToolbox.h>
#include <Foundation/Foundation.h>
NS_ASSUME_NONNULL_BEGIN

typedef uint32_t AVAudioFrameCount;   // AVFAudio: AVAudioFrameCount
typedef uint32_t AVAudioChannelCount; // AVFAudio: AVAudioChannelCount
typedef NSUInteger AVAudioNodeBus;    // AVFAudio: AVAudioNodeBus

// AVFAudio: AVAudioFormat
@interface AVAudioFormat : NSObject
// initStandardFormatWithSampleRate:channels:
- (nullable instancetype)initStandardFormatWithSampleRate:(double)sampleRate channels:(AVAudioChannelCount)channels;
@property (nonatomic, readonly) double sampleRate;                                     // sampleRate
@property (nonatomic, readonly) AVAudioChannelCount channelCount;                      // channelCount
@property (nonatomic, readonly) const AudioStreamBasicDescription* streamDescription;  // streamDescription
@end

@class AVAudioTime; // AVFAudio: AVAudioTime

// AVFAudio: AVAudioBuffer
@interface AVAudioBuffer : NSObject
@property (nonatomic, readonly) AVAudioFormat* format; // format
@end

// AVFAudio: AVAudioPCMBuffer
@interface AVAudioPCMBuffer : AVAudioBuffer
// initWithPCMFormat:frameCapacity:
- (nullable instancetype)initWithPCMFormat:(AVAudioFormat*)format
                             frameCapacity:(AVAudioFrameCount)frameCapacity NS_DESIGNATED_INITIALIZER;
@property (nonatomic) AVAudioFrameCount frameLength;                                        // frameLength
@property (nonatomic, readonly) NSUInteger stride;                                          // stride
@property (nonatomic, readonly) float* _Nonnull const* _Nullable floatChannelData;          // floatChannelData
@end

typedef void (^AVAudioNodeTapBlock)(AVAudioPCMBuffer* buffer, AVAudioTime* when); // AVFAudio: AVAudioNodeTapBlock
// AVFAudio: AVAudioNode
@interface AVAudioNode : NSObject
- (AVAudioFormat*)inputFormatForBus:(AVAudioNodeBus)bus; // inputFormatForBus:
// installTapOnBus:bufferSize:format:block:
- (void)installTapOnBus:(AVAudioNodeBus)bus
             bufferSize:(AVAudioFrameCount)bufferSize
                 format:(nullable AVAudioFormat*)format
                  block:(AVAudioNodeTapBlock)tapBlock;
- (void)removeTapOnBus:(AVAudioNodeBus)bus; // removeTapOnBus:
@end
// AVFAudio: AVAudioIONode
@interface AVAudioIONode : AVAudioNode
@property (nonatomic, readonly, nullable) AudioUnit audioUnit; // audioUnit
@end
// AVFAudio: AVAudioInputNode
@interface AVAudioInputNode : AVAudioIONode
@end

// AVFAudio: AVAudioEngine
@interface AVAudioEngine : NSObject
- (instancetype)init;                                                                             // init
- (void)prepare;                                                                                  // prepare
- (BOOL)startAndReturnError:(NSError* _Nullable __autoreleasing* _Nullable)outError;              // startAndReturnError:
- (void)stop;                                                                                     // stop
@property (readonly, nonatomic) AVAudioInputNode* inputNode;                                      // inputNode
@property (readonly, nonatomic, getter=isRunning) BOOL running;                                   // running
@end

// AVFAudio: AVAudioEngineConfigurationChangeNotification
extern "C" NSString* const AVAudioEngineConfigurationChangeNotification;

typedef NSString* AVMediaType;                     // AVFoundation: AVMediaType
extern "C" AVMediaType const AVMediaTypeAudio;     // AVFoundation: AVMediaTypeAudio
typedef NSString* AVCaptureDeviceType;             // AVFoundation: AVCaptureDeviceType
// AVFoundation: AVCaptureDeviceTypeMicrophone
extern "C" AVCaptureDeviceType const AVCaptureDeviceTypeMicrophone SINCE_MACOS(14.0);
// AVFoundation: AVCaptureDeviceTypeExternal
extern "C" AVCaptureDeviceType const AVCaptureDeviceTypeExternal SINCE_MACOS(14.0);
// AVFoundation: AVCaptureDeviceTypeBuiltInMicrophone
extern "C" AVCaptureDeviceType const AVCaptureDeviceTypeBuiltInMicrophone DEPRECATED_MACOS(10.15, 14.0);
// AVFoundation: AVCaptureDeviceTypeExternalUnknown
extern "C" AVCaptureDeviceType const AVCaptureDeviceTypeExternalUnknown DEPRECATED_MACOS(10.15, 14.0);
// AVFoundation: AVCaptureDevicePosition
typedef NS_ENUM(NSInteger, AVCaptureDevicePosition) {
    AVCaptureDevicePositionUnspecified = 0,
    AVCaptureDevicePositionBack = 1,
    AVCaptureDevicePositionFront = 2,
};
// AVFoundation: AVAuthorizationStatus
typedef NS_ENUM(NSInteger, AVAuthorizationStatus) {
    AVAuthorizationStatusNotDetermined = 0,
    AVAuthorizationStatusRestricted = 1,
    AVAuthorizationStatusDenied = 2,
    AVAuthorizationStatusAuthorized = 3,
};

// AVFoundation: AVCaptureDevice
@interface AVCaptureDevice : NSObject
@property (nonatomic, readonly) NSString* uniqueID;                                              // uniqueID
@property (nonatomic, readonly) NSString* localizedName;                                         // localizedName
+ (AVAuthorizationStatus)authorizationStatusForMediaType:(AVMediaType)mediaType;                 // authorizationStatusForMediaType:
// requestAccessForMediaType:completionHandler:
+ (void)requestAccessForMediaType:(AVMediaType)mediaType completionHandler:(void (^)(BOOL granted))handler;
@end

// AVFoundation: AVCaptureDeviceDiscoverySession
@interface AVCaptureDeviceDiscoverySession : NSObject
// discoverySessionWithDeviceTypes:mediaType:position:
+ (instancetype)discoverySessionWithDeviceTypes:(NSArray<AVCaptureDeviceType>*)deviceTypes
                                      mediaType:(nullable AVMediaType)mediaType
                                       position:(AVCaptureDevicePosition)position;
@property (nonatomic, readonly) NSArray<AVCaptureDevice*>* devices; // devices
@end

NS_ASSUME_NONNULL_END
