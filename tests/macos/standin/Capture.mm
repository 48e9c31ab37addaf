#include "Control.h"
#include "Doubles.h"

#import <AVFoundation/AVFoundation.h>

#include <utility>
#include <vector>

using namespace standin;

AVMediaType const AVMediaTypeAudio = @"soun";
AVCaptureDeviceType const AVCaptureDeviceTypeMicrophone = @"AVCaptureDeviceTypeMicrophone";
AVCaptureDeviceType const AVCaptureDeviceTypeExternal = @"AVCaptureDeviceTypeExternal";
AVCaptureDeviceType const AVCaptureDeviceTypeBuiltInMicrophone = @"AVCaptureDeviceTypeBuiltInMicrophone";
AVCaptureDeviceType const AVCaptureDeviceTypeExternalUnknown = @"AVCaptureDeviceTypeExternalUnknown";

// The answer that a request waits for; a static block would outlive the runtime's own statics.
static std::vector<void (^)(BOOL)>& microphoneHandlers() {
    static std::vector<void (^)(BOOL)> handlers;
    return handlers;
}

@implementation AVCaptureDevice {
@public
    Device _device;
}
- (NSString*)uniqueID {
    return text(_device.uid);
}
- (NSString*)localizedName {
    return text(_device.name);
}
+ (AVAuthorizationStatus)authorizationStatusForMediaType:(AVMediaType)mediaType {
    return static_cast<AVAuthorizationStatus>(world().microphoneStatus);
}
+ (void)requestAccessForMediaType:(AVMediaType)mediaType completionHandler:(void (^)(BOOL))handler {
    world().calls += QStringLiteral("request microphone ") + characters(mediaType);
    microphoneHandlers().push_back([handler copy]);
}
@end

void standin::answerMicrophone(bool granted) {
    elsewhere([&] {
        for (const auto& handler : std::exchange(microphoneHandlers(), {})) {
            handler(granted);
        }
    });
}

@implementation AVCaptureDeviceDiscoverySession
+ (instancetype)discoverySessionWithDeviceTypes:(NSArray<AVCaptureDeviceType>*)deviceTypes
                                      mediaType:(AVMediaType)mediaType
                                       position:(AVCaptureDevicePosition)position {
    QStringList types;
    for (AVCaptureDeviceType type in deviceTypes) {
        types += characters(type).remove(QStringLiteral("AVCaptureDeviceType"));
    }
    world().calls += QStringLiteral("discover %1 %2 %3")
                         .arg(types.join(u'+'), characters(mediaType))
                         .arg(static_cast<int>(position));
    return [[self alloc] init];
}
- (NSArray<AVCaptureDevice*>*)devices {
    std::vector<id> devices;
    for (const Device& device : world().devices) {
        AVCaptureDevice* object = [[AVCaptureDevice alloc] init];
        object->_device = device;
        devices.push_back(object);
    }
    return array(devices);
}
@end
