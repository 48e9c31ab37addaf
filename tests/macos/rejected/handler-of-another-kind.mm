// rejected: cannot initialize a parameter|incompatible block
#import <Speech/Speech.h>
void ask() {
    [SFSpeechRecognizer requestAuthorization:^(NSString*){
    }];
}
