// rejected: may respond|no visible|instance method '-appendAudioPCMBufer:' not found
#import <Speech/Speech.h>
void append(SFSpeechAudioBufferRecognitionRequest* request, AVAudioPCMBuffer* buffer) {
    [request appendAudioPCMBufer:buffer];
}
