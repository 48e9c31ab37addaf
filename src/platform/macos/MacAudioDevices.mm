#include "platform/macos/FoundationText.h"
#include "platform/macos/MacServices.h"

#import <AVFoundation/AVFoundation.h>
#import <CoreAudio/CoreAudio.h>

namespace brivandel {

namespace {

NSArray<AVCaptureDeviceType>* inputTypes() {
    if (@available(macOS 14.0, *)) {
        return @[ AVCaptureDeviceTypeMicrophone, AVCaptureDeviceTypeExternal ];
    }
    return @[ AVCaptureDeviceTypeBuiltInMicrophone, AVCaptureDeviceTypeExternalUnknown ];
}

class MacAudioDevices final : public AudioDevices {
public:
    [[nodiscard]] QList<AudioDevice> inputDevices() override {
        @autoreleasepool {
            AVCaptureDeviceDiscoverySession* session = [AVCaptureDeviceDiscoverySession
                discoverySessionWithDeviceTypes:inputTypes()
                                      mediaType:AVMediaTypeAudio
                                       position:AVCaptureDevicePositionUnspecified];
            QList<AudioDevice> devices;
            for (AVCaptureDevice* device in session.devices) {
                devices += {fromNSString(device.uniqueID), fromNSString(device.localizedName)};
            }
            return devices;
        }
    }

    [[nodiscard]] std::optional<AudioDeviceID> deviceIDForUID(const QString& uid) override {
        @autoreleasepool {
            constexpr AudioObjectPropertyAddress address = {kAudioHardwarePropertyTranslateUIDToDevice,
                                                            kAudioObjectPropertyScopeGlobal,
                                                            kAudioObjectPropertyElementMain};
            NSString* uidString = toNSString(uid); // outlives the reference, which owns nothing
            CFStringRef uidReference = (__bridge CFStringRef)uidString;
            AudioDeviceID device = kAudioObjectUnknown;
            UInt32 size = sizeof device;
            const OSStatus status = AudioObjectGetPropertyData(
                kAudioObjectSystemObject, &address, sizeof uidReference, &uidReference, &size, &device);
            if (status != noErr || device == kAudioObjectUnknown) {
                return std::nullopt;
            }
            return device;
        }
    }
};

} // namespace

std::unique_ptr<AudioDevices> makeMacAudioDevices() {
    return std::make_unique<MacAudioDevices>();
}

} // namespace brivandel
