// rejected: property 'finished' not found
#import <Speech/Speech.h>
bool isOver(SFSpeechRecognitionResult* result) {
    return result.finished;
}
