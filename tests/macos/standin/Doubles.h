#pragma once

// For Objective-C++ files alone: how the stand-in classes are made.
#include <QString>

#import <Foundation/Foundation.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace standin {

[[nodiscard]] NSString* _Nonnull text(const QString& characters);
[[nodiscard]] QString characters(NSString* _Nullable text);
[[nodiscard]] NSArray* _Nonnull array(const std::vector<id>& objects);
[[nodiscard]] NSDictionary* _Nonnull dictionary(const std::vector<std::pair<NSString*, id>>& entries);
[[nodiscard]] NSError* _Nonnull error(const QString& description);
[[nodiscard]] NSValue* _Nonnull rangeValue(NSRange range);
/// An object that is of no kind that is stored.
[[nodiscard]] NSObject* _Nonnull foreignObject();

/// What a framework does on a thread of its own, and waits for, so that a test knows that it is done.
template <typename Work>
void elsewhere(const Work& work) {
    std::thread([&work] {
        @autoreleasepool {
            work();
        }
    }).join();
}

} // namespace standin
