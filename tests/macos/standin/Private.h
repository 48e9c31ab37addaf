#pragma once

// For Objective-C++ files alone: what stand-in classes tell each other and no adapter.
#include <QByteArray>

#import <Foundation/Foundation.h>

#include <functional>
#include <string>

namespace standin {

enum class NumberKind { Boolean, Integer, Real };

/// Runs what observes that notification of that object, on a thread of its own, after meanwhile has been
/// called here: as when word is on its way while something else happens.
void postNotification(NSString* _Nonnull name, void* _Nullable object,
                      const std::function<void()>& meanwhile);
void forgetStoredObjects();

} // namespace standin

@interface NSString (Standin)
- (std::u16string)units;
@end

@interface NSLocale (Standin)
- (nonnull NSString*)identifier;
@end

@interface NSNumber (Standin)
- (standin::NumberKind)kind;
@end

@interface NSData (Standin)
- (QByteArray)content;
@end
