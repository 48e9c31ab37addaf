// rejected: implicit conversion from nullable pointer
#import <Foundation/Foundation.h>
NSString* _Nonnull identifier() {
    return NSBundle.mainBundle.bundleIdentifier;
}
