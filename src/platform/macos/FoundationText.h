#pragma once

// For Objective-C++ files alone.
#include <QString>

#import <Foundation/Foundation.h>

namespace brivandel {

/// The same UTF-16 units. Qt has such functions only where it is built for this system, and these run in the
/// tests too.
[[nodiscard]] inline NSString* _Nonnull toNSString(const QString& text) {
    return [NSString stringWithCharacters:reinterpret_cast<const unichar*>(text.utf16())
                                   length:static_cast<NSUInteger>(text.size())];
}

/// Empty for nil.
[[nodiscard]] inline QString fromNSString(NSString* _Nullable text) {
    if (text == nil) {
        return {};
    }
    const NSUInteger unitCount = text.length;
    QString result(static_cast<qsizetype>(unitCount), Qt::Uninitialized);
    [text getCharacters:reinterpret_cast<unichar*>(result.data()) range:NSMakeRange(0, unitCount)];
    return result;
}

} // namespace brivandel
