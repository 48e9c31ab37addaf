#include "platform/macos/MacBundle.h"

#include "platform/macos/FoundationText.h"

namespace brivandel {

QString bundleIdentifier() {
    @autoreleasepool {
        return fromNSString(NSBundle.mainBundle.bundleIdentifier);
    }
}

QString userLibraryFolder() {
    @autoreleasepool {
        NSArray<NSString*>* folders =
            NSSearchPathForDirectoriesInDomains(NSLibraryDirectory, NSUserDomainMask, YES);
        return fromNSString(folders.firstObject);
    }
}

} // namespace brivandel
