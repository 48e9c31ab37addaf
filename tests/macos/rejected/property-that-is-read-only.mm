// rejected: readonly property
#import <AVFoundation/AVFoundation.h>
void change(AVAudioFormat* format) {
    format.sampleRate = 16000;
}
