// rejected: cannot initialize|incompatible pointer
#import <AVFoundation/AVFoundation.h>
NSString* first(AVCaptureDeviceDiscoverySession* session) {
    return session.devices.firstObject;
}
