// rejected: requires a bridged cast|bridge
#import <Foundation/Foundation.h>
CFStringRef reference(NSString* text) {
    return (CFStringRef)text;
}
