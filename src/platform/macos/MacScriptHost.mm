#include "platform/macos/FoundationText.h"
#include "platform/macos/MacServices.h"

#import <Foundation/Foundation.h>

#include <mutex>

namespace brivandel {

namespace {

QVariant describedValue(NSObject* value) {
    if ([value isKindOfClass:NSString.class]) {
        return fromNSString(static_cast<NSString*>(value));
    }
    // Asked before values of other kinds, since a number is one of them.
    if ([value isKindOfClass:NSNumber.class]) {
        return qlonglong{static_cast<NSNumber*>(value).longLongValue};
    }
    if ([value isKindOfClass:NSValue.class]) {
        auto* boxed = static_cast<NSValue*>(value);
        if (QByteArrayView(boxed.objCType) == QByteArrayView(@encode(NSRange))) {
            const NSRange range = boxed.rangeValue;
            return QVariantList{static_cast<qlonglong>(range.location), static_cast<qlonglong>(range.length)};
        }
    }
    return fromNSString(value.description);
}

ScriptErrorDictionary errorDictionary(NSDictionary<NSString*, id>* _Nullable info) {
    ScriptErrorDictionary error;
    for (NSString* key in info) {
        NSObject* value = info[key];
        error.insert(fromNSString(key), describedValue(value));
    }
    return error;
}

// The system documents NSAppleScript for the main thread alone, which a script of seconds would hold up. What
// is not safe is to use it from two threads at once, since all scripts of a process share one instance of the
// language. So a script is made, run and let go on one thread inside one turn, and no two turns overlap,
// whichever hosts they come from. Commands in quick succession wait for each other.
std::mutex& scriptTurn() {
    static std::mutex turn;
    return turn;
}

class MacScriptHost final : public ScriptHost {
public:
    [[nodiscard]] std::optional<ScriptErrorDictionary> run(const QString& source) override {
        const std::lock_guard turn(scriptTurn());
        @autoreleasepool {
            NSDictionary<NSString*, id>* error = nil;
            NSAppleScript* script = [[NSAppleScript alloc] initWithSource:toNSString(source)];
            // Declared never to be nil, and documented to be nil when the script failed. A script that could
            // not be made answers nil, too.
            if ([script executeAndReturnError:&error] != nil) {
                return std::nullopt;
            }
            return errorDictionary(error);
        }
    }
};

} // namespace

std::unique_ptr<ScriptHost> makeMacScriptHost() {
    return std::make_unique<MacScriptHost>();
}

} // namespace brivandel
