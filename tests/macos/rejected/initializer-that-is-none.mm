// rejected: 'init' is unavailable
#import <Foundation/Foundation.h>
NSAppleScript* script() {
    return [[NSAppleScript alloc] init];
}
