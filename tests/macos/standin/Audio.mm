#include "Control.h"
#include "Doubles.h"
#include "Private.h"

#import <AVFoundation/AVFoundation.h>

#include <algorithm>
#include <cstring>

using namespace standin;

@implementation NSException {
@public
    NSString* _reason;
}
- (NSExceptionName)name {
    return @"com.apple.coreaudio.avfaudio";
}
- (NSString*)reason {
    return _reason;
}
@end

static void raise(const QString& reason) {
    NSException* exception = [[NSException alloc] init];
    exception->_reason = reason.isEmpty() ? nil : text(reason);
    @throw exception;
}

// What the test wants raised, once.
static void raiseIfAsked() {
    if (const auto reason = std::exchange(world().raised, std::nullopt)) {
        raise(*reason);
    }
}

@implementation AVAudioFormat {
@public
    Input _input;
    AudioStreamBasicDescription _description;
}
+ (AVAudioFormat*)formatOf:(const Input&)input {
    AVAudioFormat* format = [[AVAudioFormat alloc] init];
    format->_input = input;
    format->_description.mFormatID = input.formatID;
    format->_description.mBitsPerChannel = input.bitsPerChannel;
    return format;
}
- (instancetype)initStandardFormatWithSampleRate:(double)sampleRate channels:(AVAudioChannelCount)channels {
    if (channels < 1 || channels > 2 || sampleRate <= 0) {
        return nil;
    }
    if ((self = [super init]) != nil) {
        _input = {sampleRate, channels};
    }
    return self;
}
- (double)sampleRate {
    return _input.sampleRateHz;
}
- (AVAudioChannelCount)channelCount {
    return _input.channelCount;
}
- (const AudioStreamBasicDescription*)streamDescription {
    return &_description;
}
@end

@implementation AVAudioBuffer {
@public
    AVAudioFormat* _format;
}
- (AVAudioFormat*)format {
    return _format;
}
@end

@implementation AVAudioPCMBuffer {
@public
    std::vector<std::vector<float>> _samples;
    std::vector<float*> _channels;
    AVAudioFrameCount _frameLength;
}
- (instancetype)initWithPCMFormat:(AVAudioFormat*)format frameCapacity:(AVAudioFrameCount)frameCapacity {
    if ((self = [super init]) != nil) {
        self->_format = format;
        _samples.assign(format.channelCount, std::vector<float>(frameCapacity));
        for (auto& channel : _samples) {
            _channels.push_back(channel.data());
        }
    }
    return self;
}
- (AVAudioFrameCount)frameLength {
    return _frameLength;
}
- (void)setFrameLength:(AVAudioFrameCount)frameLength {
    if (frameLength > 0 && frameLength > _samples[0].size()) {
        raise(QStringLiteral("a frame length beyond the capacity"));
    }
    _frameLength = frameLength;
}
- (NSUInteger)stride {
    return self->_format->_input.isInterleaved ? self->_format.channelCount : 1;
}
- (float* const*)floatChannelData {
    return _channels.empty() ? nullptr : _channels.data();
}
@end

std::vector<std::vector<float>> samplesOf(AVAudioPCMBuffer* buffer) {
    std::vector<std::vector<float>> samples = buffer->_samples;
    for (auto& channel : samples) {
        channel.resize(buffer->_frameLength);
    }
    return samples;
}

@implementation AVAudioNode {
@public
    AVAudioNodeTapBlock _tap;
    std::uint32_t _deviceID;
}
- (AVAudioFormat*)inputFormatForBus:(AVAudioNodeBus)bus {
    raiseIfAsked();
    return [AVAudioFormat formatOf:world().input];
}
- (void)installTapOnBus:(AVAudioNodeBus)bus
             bufferSize:(AVAudioFrameCount)bufferSize
                 format:(AVAudioFormat*)format
                  block:(AVAudioNodeTapBlock)tapBlock {
    raiseIfAsked();
    if (_tap != nil) {
        raise(QStringLiteral("required condition is false: nullptr == Tap()"));
    }
    if (format != nil && format.sampleRate != world().input.sampleRateHz) {
        raise(QStringLiteral("required condition is false: format.sampleRate == inputHWFormat.sampleRate"));
    }
    world().calls += QStringLiteral("installTap %1").arg(bufferSize);
    _tap = [tapBlock copy];
}
- (void)removeTapOnBus:(AVAudioNodeBus)bus {
    world().calls += QStringLiteral("removeTap");
    _tap = nil;
}
@end
@implementation AVAudioIONode
- (AudioUnit)audioUnit {
    return world().hasAudioUnit ? reinterpret_cast<AudioUnit>((__bridge void*)self) : nullptr;
}
@end
@implementation AVAudioInputNode
@end

NSString* const AVAudioEngineConfigurationChangeNotification =
    @"AVAudioEngineConfigurationChangeNotification";

// The engine that was made last, while it lives.
static void* liveEngine = nullptr;

// Whether the system's thread is inside the notification of a change, where an engine that ends may wait for
// ever.
static bool isTellingOfChange = false;

@implementation AVAudioEngine {
@public
    AVAudioInputNode* _inputNode;
    BOOL _isRunning;
}
- (instancetype)init {
    if ((self = [super init]) != nil) {
        liveEngine = (__bridge void*)self;
        world().calls += QStringLiteral("engine");
    }
    return self;
}
- (void)dealloc {
    if (isTellingOfChange) {
        qFatal("an engine ended on the thread that tells of its change");
    }
    if (liveEngine == (__bridge void*)self) {
        liveEngine = nullptr;
    }
}
- (AVAudioInputNode*)inputNode {
    if (_inputNode == nil) {
        _inputNode = [[AVAudioInputNode alloc] init];
    }
    return _inputNode;
}
- (BOOL)isRunning {
    return _isRunning;
}
- (void)prepare {
    raiseIfAsked();
    if (_inputNode == nil) {
        raise(QStringLiteral("required condition is false: inputNode != nullptr || outputNode != nullptr"));
    }
    world().calls += QStringLiteral("prepare");
}
- (BOOL)startAndReturnError:(NSError**)outError {
    raiseIfAsked();
    if (world().failingStarts > 0) {
        --world().failingStarts;
        world().calls += QStringLiteral("startFailed");
        if (outError != nullptr && !world().startError.isNull()) {
            *outError = error(world().startError);
        }
        return NO;
    }
    world().calls += QStringLiteral("start");
    _isRunning = YES;
    return YES;
}
- (void)stop {
    if (_isRunning) {
        world().calls += QStringLiteral("stop");
    }
    _isRunning = NO;
}
@end

static AVAudioEngine* engine() {
    return (__bridge AVAudioEngine*)liveEngine;
}

void standin::changeConfiguration(Engine engineThen, const std::function<void()>& meanwhile,
                                  const std::function<void()>& beforeItReturns) {
    void* const changed = liveEngine;
    AVAudioEngine* held = nil; // by the notification, if it still lives when that arrives
    @autoreleasepool {
        if (engineThen == Engine::Stops && engine() != nil) {
            engine()->_isRunning = NO;
        }
    }
    @autoreleasepool {
        postNotification(AVAudioEngineConfigurationChangeNotification, changed, [&] {
            if (meanwhile) {
                meanwhile();
            }
            held = liveEngine == changed ? engine() : nil;
        });
        if (beforeItReturns) {
            beforeItReturns();
        }
    }
    elsewhere([&] {
        isTellingOfChange = true;
        held = nil;
        isTellingOfChange = false;
    });
}

static void giveToTap(AVAudioPCMBuffer* buffer) {
    elsewhere([&] {
        AVAudioEngine* running = engine();
        if (running != nil && running->_isRunning && running->_inputNode->_tap != nil) {
            running->_inputNode->_tap(buffer, (AVAudioTime* _Nonnull)nil);
        }
    });
}

void standin::feed(const std::vector<std::vector<float>>& channels) {
    @autoreleasepool {
        Input input = world().input;
        input.channelCount = static_cast<std::uint32_t>(channels.size());
        const auto frameCount = static_cast<AVAudioFrameCount>(channels.empty() ? 0 : channels[0].size());
        AVAudioPCMBuffer* buffer = [[AVAudioPCMBuffer alloc] initWithPCMFormat:[AVAudioFormat formatOf:input]
                                                                 frameCapacity:frameCount];
        for (std::size_t channel = 0; channel < channels.size(); ++channel) {
            std::ranges::copy(channels[channel], buffer->_samples[channel].begin());
        }
        buffer.frameLength = frameCount;
        giveToTap(buffer);
    }
}

void standin::feedWithoutData(std::uint32_t frameCount) {
    @autoreleasepool {
        AVAudioPCMBuffer* buffer =
            [[AVAudioPCMBuffer alloc] initWithPCMFormat:[AVAudioFormat formatOf:world().input]
                                          frameCapacity:frameCount];
        buffer.frameLength = frameCount;
        buffer->_channels.clear();
        giveToTap(buffer);
    }
}

OSStatus AudioUnitSetProperty(AudioUnit inUnit, AudioUnitPropertyID inID, AudioUnitScope inScope,
                              AudioUnitElement inElement, const void* inData, UInt32 inDataSize) {
    if (inID != kAudioOutputUnitProperty_CurrentDevice || inScope != kAudioUnitScope_Global ||
        inElement != 0 || inDataSize != sizeof(AudioDeviceID)) {
        return -50;
    }
    ++world().deviceSettings;
    if (world().deviceStatus == noErr) {
        AVAudioNode* node = (__bridge AVAudioNode*)static_cast<void*>(inUnit);
        std::memcpy(&node->_deviceID, inData, inDataSize);
        world().calls += QStringLiteral("device %1").arg(node->_deviceID);
    }
    return world().deviceStatus;
}

std::uint32_t standin::currentDevice() {
    @autoreleasepool {
        return engine() != nil && engine()->_inputNode != nil ? engine()->_inputNode->_deviceID : 0;
    }
}
