#include "platform/Lifeline.h"
#include "platform/MainQueue.h"
#include "platform/macos/CallbackGate.h"
#include "platform/macos/CaptureEnd.h"
#include "platform/macos/FoundationText.h"
#include "platform/macos/HardwareObservation.h"
#include "platform/macos/MacServices.h"
#include "platform/macos/NotificationObservation.h"
#include "platform/macos/TapGate.h"
#include "platform/macos/UserActivity.h"

#import <AVFoundation/AVFoundation.h>
#import <AudioToolbox/AudioToolbox.h>

#include <chrono>
#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace brivandel {

namespace {

constexpr AVAudioNodeBus inputBus = 0;

// The system holds the engine while it tells of a change, and does not say when it is done; what is told does
// no more there than post.
constexpr std::chrono::seconds retirement{2};

// AVFAudio raises an exception for what a program should have known, and for what none can know, as that an
// input was unplugged a moment ago. None of them may go further than this.
template <typename Call>
std::optional<QString> failureOf(const Call& call) {
    @try {
        return call();
    } @catch (NSException* exception) {
        const QString reason = fromNSString(exception.reason);
        return reason.isEmpty() ? fromNSString(exception.name) : reason;
    }
}

// The arrays of the buffer's channels; none when it holds no separate arrays of floats.
std::span<const float* const> channelsOf(AVAudioPCMBuffer* buffer) {
    const float* const* channels = buffer.floatChannelData;
    if (channels == nullptr || buffer.stride != 1) {
        return {};
    }
    return {channels, buffer.format.channelCount};
}

/// An engine stops by itself when its input changes its format, and should when that goes. Whoever listens
/// then begins anew, with the format that the input has by that time. A start that failed for want of an
/// input is followed by another once sound devices come or go, of which the system tells without saying
/// whether they are inputs.
class MacAudioEngine final : public AudioEngine {
public:
    MacAudioEngine(MainQueue& mainQueue, std::shared_ptr<CaptureEnd> captureEnd)
        : mainQueue_(mainQueue)
        , captureEnd_(std::move(captureEnd)) {
        @autoreleasepool {
            makeEngine();
            const auto told = hop(QStringLiteral("The sound devices have changed."));
            for (const auto property :
                 {kAudioHardwarePropertyDevices, kAudioHardwarePropertyDefaultInputDevice}) {
                inputs_.push_back(std::make_unique<HardwareObservation>(property, ^{
                  told();
                }));
            }
        }
    }

    ~MacAudioEngine() override {
        @autoreleasepool {
            gate_->close();
            inputs_.clear();
            configuration_.reset();
            removeTap();
            stop();
            engine_ = nil;
        }
    }

    MacAudioEngine(const MacAudioEngine&) = delete;
    MacAudioEngine& operator=(const MacAudioEngine&) = delete;

    [[nodiscard]] AudioFormat inputFormat() override {
        @autoreleasepool {
            AudioFormat format{.sampleRateHz = 0, .channelCount = 0, .bitsPerChannel = 0};
            static_cast<void>(failureOf([&]() -> std::optional<QString> {
                AVAudioFormat* input = [engine_.inputNode inputFormatForBus:inputBus];
                const AudioStreamBasicDescription& description = *input.streamDescription;
                format = {input.sampleRate, input.channelCount, description.mFormatID,
                          description.mBitsPerChannel};
                return std::nullopt;
            }));
            return format;
        }
    }

    /// What goes wrong is told by the start that follows, which also tries again.
    void installTap(std::uint32_t bufferSizeFrames, const AudioFormat& /*format*/, TapBlock block) override {
        removeTap();
        tapBufferSizeFrames_ = bufferSizeFrames;
        tap_ = std::make_shared<TapGate>(std::move(block));
        static_cast<void>(connectTap());
    }

    void removeTap() override {
        @autoreleasepool {
            if (tap_) {
                tap_->close();
                tap_.reset();
            }
            disconnectTap();
        }
    }

    void prepare() override {
        @autoreleasepool {
            static_cast<void>(failureOf([this]() -> std::optional<QString> {
                // An engine without any node refuses to be prepared, and its input node is made when asked
                // for.
                if (engine_.inputNode != nil) {
                    [engine_ prepare];
                }
                return std::nullopt;
            }));
        }
    }

    [[nodiscard]] std::optional<QString> start() override {
        @autoreleasepool {
            if (!activity_) {
                activity_ = std::make_unique<UserActivity>(@"Listening to spoken commands");
            }
            auto failure = startEngine();
            if (failure) {
                deviceInForce_.reset();
            }
            return failure;
        }
    }

    void stop() override {
        @autoreleasepool {
            activity_.reset();
            stopEngine();
        }
    }

    void followDefaultInput() override {
        if (!hasDeviceOfItsOwn_) {
            return;
        }
        // There is no way back for an engine whose device was set; set to the default of this moment, it
        // would not follow the next one.
        @autoreleasepool {
            disconnectTap();
            stop();
            makeEngine();
            hasDeviceOfItsOwn_ = false;
        }
    }

    [[nodiscard]] std::int32_t setInputDevice(AudioDeviceID device) override {
        // An engine may take it for a change of its configuration, and stop soon after its start: set at each
        // start, there would be no end of that.
        if (device == deviceInForce_) {
            return noErr;
        }
        @autoreleasepool {
            AudioUnit unit = nullptr;
            static_cast<void>(failureOf([&]() -> std::optional<QString> {
                unit = engine_.inputNode.audioUnit;
                return std::nullopt;
            }));
            if (unit == nullptr) {
                return kAudioUnitErr_Uninitialized;
            }
            // What a running engine makes of another device is promised nowhere. Whoever sets one starts it
            // afterwards, and so is still taken to listen.
            if (engine_.running) {
                stopEngine();
            }
            constexpr AudioUnitElement element = 0;
            const OSStatus status =
                AudioUnitSetProperty(unit, kAudioOutputUnitProperty_CurrentDevice, kAudioUnitScope_Global,
                                     element, &device, sizeof device);
            if (status == noErr) {
                hasDeviceOfItsOwn_ = true;
                deviceInForce_ = device;
            }
            return status;
        }
    }

private:
    void makeEngine() {
        configuration_.reset();
        deviceInForce_.reset();
        retireEngine();
        engine_ = [[AVAudioEngine alloc] init];
        const auto told = hop(QStringLiteral("The input was unplugged, or has changed."));
        configuration_ = std::make_unique<NotificationObservation>(
            AVAudioEngineConfigurationChangeNotification, engine_, ^(NSNotification*) {
              told();
            });
    }

    // The thread that tells of a change may still be inside the notification, which holds the engine: were
    // that the last to hold it, the engine would end there, and wait for the very thread that ends it.
    void retireEngine() {
        if (engine_ != nil) {
            mainQueue_.postAfter(retirement, [retired = engine_] { static_cast<void>(retired); });
        }
    }

    // For the system's threads, on which the engine must not be touched: its end would wait for the very
    // thread that tells.
    std::function<void()> hop(const QString& reason) {
        auto arrived = lifeline_.guard([this, reason] { captureMayHaveEnded(reason); });
        return [gate = gate_, &mainQueue = mainQueue_, arrived] {
            gate->pass([&] { mainQueue.post(arrived); });
        };
    }

    // Word of a change may come late, and of one that did no harm: what counts is how the engine stands now.
    void captureMayHaveEnded(const QString& reason) {
        @autoreleasepool {
            if (!activity_ || engine_.running) {
                return;
            }
            // It was connected with the format that the input had.
            disconnectTap();
            // What an engine knows of the system's default input may be out of date for good.
            if (!hasDeviceOfItsOwn_) {
                makeEngine();
            }
            captureEnd_->tell(reason);
        }
    }

    std::optional<QString> startEngine() {
        if (engine_.running && (!tap_ || isTapConnected_)) {
            return std::nullopt;
        }
        if (auto failure = connectTap()) {
            return failure;
        }
        return failureOf([this]() -> std::optional<QString> {
            NSError* error = nil;
            if ([engine_ startAndReturnError:&error]) {
                return std::nullopt;
            }
            return error != nil ? fromNSString(error.localizedDescription)
                                : QStringLiteral("the audio engine gave no reason");
        });
    }

    void stopEngine() {
        static_cast<void>(failureOf([this]() -> std::optional<QString> {
            [engine_ stop];
            return std::nullopt;
        }));
    }

    // What failed, if anything. Nothing to connect is no failure.
    std::optional<QString> connectTap() {
        if (!tap_ || isTapConnected_) {
            return std::nullopt;
        }
        @autoreleasepool {
            auto failure = failureOf([this]() -> std::optional<QString> {
                AVAudioInputNode* input = engine_.inputNode;
                AVAudioFormat* format = [input inputFormatForBus:inputBus];
                if (format.sampleRate <= 0 || format.channelCount == 0) {
                    return QStringLiteral("there is no sound input, or this program may not use it");
                }
                const auto tap = tap_;
                [input installTapOnBus:inputBus
                            bufferSize:tapBufferSizeFrames_
                                format:format
                                 block:^(AVAudioPCMBuffer* buffer, AVAudioTime*) {
                                   @autoreleasepool {
                                       tap->pass({buffer.format.sampleRate, buffer.frameLength,
                                                  channelsOf(buffer)});
                                   }
                                 }];
                return std::nullopt;
            });
            isTapConnected_ = !failure;
            return failure;
        }
    }

    void disconnectTap() {
        if (!isTapConnected_) {
            return;
        }
        isTapConnected_ = false;
        static_cast<void>(failureOf([this]() -> std::optional<QString> {
            [engine_.inputNode removeTapOnBus:inputBus];
            return std::nullopt;
        }));
    }

    MainQueue& mainQueue_;
    std::shared_ptr<CaptureEnd> captureEnd_;
    std::shared_ptr<CallbackGate> gate_ = std::make_shared<CallbackGate>();
    AVAudioEngine* engine_ = nil;
    std::unique_ptr<NotificationObservation> configuration_; // of the engine
    std::vector<std::unique_ptr<HardwareObservation>> inputs_;
    std::unique_ptr<UserActivity> activity_; // from start to stop, whether or not the engine runs
    bool hasDeviceOfItsOwn_ = false;
    std::optional<AudioDeviceID> deviceInForce_; // none after a failed start, whatever was set
    std::shared_ptr<TapGate> tap_;               // the tap that is wanted
    bool isTapConnected_ = false;
    std::uint32_t tapBufferSizeFrames_ = 0;
    Lifeline lifeline_;
};

} // namespace

std::unique_ptr<AudioEngine> makeMacAudioEngine(MainQueue& mainQueue,
                                                std::shared_ptr<CaptureEnd> captureEnd) {
    return std::make_unique<MacAudioEngine>(mainQueue, std::move(captureEnd));
}

} // namespace brivandel
