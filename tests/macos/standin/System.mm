#include "Control.h"
#include "Doubles.h"
#include "Private.h"

#import <ApplicationServices/ApplicationServices.h>
#import <Carbon/Carbon.h>
#import <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <thread>

using namespace standin;

// References that are no objects here, counted.
static int givenOut = 0;
static char inputSource;
static char layoutData;
static char session;

void CFRelease(CFTypeRef cf) {
    if (cf == &inputSource || cf == &session) {
        --givenOut;
    }
}

int standin::unreleasedReferences() {
    return givenOut;
}

const CFStringRef kTISPropertyUnicodeKeyLayoutData = reinterpret_cast<CFStringRef>(&layoutData);

TISInputSourceRef TISCopyCurrentASCIICapableKeyboardLayoutInputSource() {
    if (!world().hasLayout) {
        return nullptr;
    }
    ++givenOut;
    return reinterpret_cast<TISInputSourceRef>(&inputSource);
}

void* TISGetInputSourceProperty(TISInputSourceRef inputSource, CFStringRef propertyKey) {
    const bool isAsked = inputSource != nullptr && propertyKey == kTISPropertyUnicodeKeyLayoutData;
    return isAsked && world().layoutHasData ? &layoutData : nullptr;
}

const UInt8* CFDataGetBytePtr(CFDataRef theData) {
    return reinterpret_cast<const UInt8*>(theData);
}

UInt8 LMGetKbdType() {
    return 40;
}

OSStatus UCKeyTranslate(const UCKeyboardLayout* keyLayoutPtr, UInt16 virtualKeyCode, UInt16 keyAction,
                        UInt32 modifierKeyState, UInt32 keyboardType, OptionBits keyTranslateOptions,
                        UInt32* deadKeyState, UniCharCount maxStringLength, UniCharCount* actualStringLength,
                        UniChar* unicodeString) {
    if (reinterpret_cast<const char*>(keyLayoutPtr) != &layoutData || keyAction != kUCKeyActionDown ||
        modifierKeyState != 0 || keyboardType != LMGetKbdType() || keyTranslateOptions != 0 ||
        *deadKeyState != 0 || maxStringLength != 4) {
        return -50;
    }
    const std::u16string& typed = world().keys[virtualKeyCode];
    *actualStringLength = std::min<UniCharCount>(typed.size(), maxStringLength);
    std::copy_n(typed.begin(), *actualStringLength, unicodeString);
    return world().translationStatus;
}

CFDictionaryRef CGSessionCopyCurrentDictionary() {
    if (!world().hasSession) {
        return nullptr;
    }
    ++givenOut;
    return reinterpret_cast<CFDictionaryRef>(&session);
}

Boolean AXIsProcessTrusted() {
    return world().isTrusted;
}

static QByteArray describedTarget;

OSErr AECreateDesc(DescType typeCode, const void* dataPtr, Size dataSize, AEDesc* result) {
    ++givenOut;
    describedTarget = QByteArray(static_cast<const char*>(dataPtr), dataSize);
    result->descriptorType = typeCode;
    return noErr;
}

OSErr AEDisposeDesc(AEDesc* theAEDesc) {
    --givenOut;
    return noErr;
}

OSStatus AEDeterminePermissionToAutomateTarget(const AEAddressDesc* target, AEEventClass theAEEventClass,
                                               AEEventID theAEEventID, Boolean askUserIfNeeded) {
    world().calls += QStringLiteral("may automate %1 ask=%2")
                         .arg(QString::fromLatin1(describedTarget))
                         .arg(static_cast<int>(askUserIfNeeded));
    return target->descriptorType == typeApplicationBundleID ? world().automationStatus : -50;
}

@interface NSAppleEventDescriptor : NSObject
@end
@implementation NSAppleEventDescriptor
@end

static std::atomic<int> runningScripts;

@implementation NSAppleScript {
@public
    NSString* _source;
    std::thread::id _thread;
}
- (instancetype)initWithSource:(NSString*)source {
    if ((self = [super init]) != nil) {
        _source = source;
        _thread = std::this_thread::get_id();
    }
    return self;
}
- (void)dealloc {
    if (_thread != std::this_thread::get_id()) {
        world().calls += QStringLiteral("script let go on another thread");
    }
}
- (NSAppleEventDescriptor*)executeAndReturnError:(NSDictionary<NSString*, id>**)errorInfo {
    if (runningScripts.fetch_add(1) != 0) {
        world().calls += QStringLiteral("two scripts at once");
    }
    if (world().duringScript) {
        world().duringScript();
    }
    world().calls += QStringLiteral("script ") + characters(_source);
    --runningScripts;
    if (!world().scriptError) {
        return [[NSAppleEventDescriptor alloc] init];
    }
    if (!world().scriptGivesNoInfo) {
        std::vector<std::pair<NSString*, id>> entries;
        for (const auto& [key, value] : *world().scriptError) {
            id object = text(value.toString());
            if (value.typeId() == QMetaType::QVariantList) {
                const QVariantList range = value.toList();
                object = rangeValue({range[0].toULongLong(), range[1].toULongLong()});
            } else if (value.typeId() != QMetaType::QString) {
                object = [NSNumber numberWithLongLong:value.toLongLong()];
            }
            entries.emplace_back(text(key), object);
        }
        *errorInfo = dictionary(entries);
    }
    return (NSAppleEventDescriptor* _Nonnull)nil;
}
@end
