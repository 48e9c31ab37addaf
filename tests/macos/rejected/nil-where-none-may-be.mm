// rejected: null passed to a callee that requires a non-null argument
#import <Foundation/Foundation.h>
NSLocale* locale() {
    return [NSLocale localeWithLocaleIdentifier:nil];
}
