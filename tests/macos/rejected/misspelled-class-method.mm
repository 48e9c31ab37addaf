// rejected: no known class method for selector .requestAccessForMediatype
#import <AVFoundation/AVFoundation.h>
void ask() {
    [AVCaptureDevice requestAccessForMediatype:AVMediaTypeAudio
                             completionHandler:^(BOOL){
                             }];
}
