#pragma once

// For Objective-C++ files alone: what stand-in classes tell each other and no adapter.
#import <Foundation/Foundation.h>

#include <string>

@interface NSString (Standin)
- (std::u16string)units;
@end

@interface NSLocale (Standin)
- (nonnull NSString*)identifier;
@end
