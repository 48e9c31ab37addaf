// rejected: only available on macOS 14
#import <AVFoundation/AVFoundation.h>
NSString* kind() {
    return AVCaptureDeviceTypeMicrophone;
}
