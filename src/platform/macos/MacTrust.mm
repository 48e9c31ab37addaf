#include "platform/macos/MacTrust.h"

#include "platform/macos/FoundationText.h"

#import <AVFoundation/AVFoundation.h>
#import <AppKit/AppKit.h>
#import <ApplicationServices/ApplicationServices.h>
#import <CoreServices/CoreServices.h>
#import <Speech/Speech.h>

#include <cstring>

namespace brivandel {

namespace {

// Owns the description of whom an Apple event is for.
class EventTarget {
public:
    explicit EventTarget(const char* bundleIdentifier)
        : status_(AECreateDesc(typeApplicationBundleID, bundleIdentifier,
                               static_cast<Size>(std::strlen(bundleIdentifier)), &descriptor_)) {}
    ~EventTarget() {
        if (status_ == noErr) {
            AEDisposeDesc(&descriptor_);
        }
    }
    EventTarget(const EventTarget&) = delete;
    EventTarget& operator=(const EventTarget&) = delete;

    [[nodiscard]] OSStatus permissionForEverything() const {
        constexpr Boolean askUser = 0;
        return status_ != noErr
                   ? status_
                   : AEDeterminePermissionToAutomateTarget(&descriptor_, typeWildCard, typeWildCard, askUser);
    }

private:
    AEDesc descriptor_{};
    OSStatus status_;
};

SFSpeechRecognizer* _Nullable americanRecognizer() {
    return [[SFSpeechRecognizer alloc] initWithLocale:[NSLocale localeWithLocaleIdentifier:@"en-US"]];
}

} // namespace

Consent speechConsent() {
    @autoreleasepool {
        switch ([SFSpeechRecognizer authorizationStatus]) {
        case SFSpeechRecognizerAuthorizationStatusAuthorized:
            return Consent::Given;
        case SFSpeechRecognizerAuthorizationStatusNotDetermined:
            return Consent::NotAskedYet;
        case SFSpeechRecognizerAuthorizationStatusDenied:
            return Consent::Refused;
        case SFSpeechRecognizerAuthorizationStatusRestricted:
            return Consent::Restricted;
        }
        return Consent::Unknown;
    }
}

Consent microphoneConsent() {
    @autoreleasepool {
        switch ([AVCaptureDevice authorizationStatusForMediaType:AVMediaTypeAudio]) {
        case AVAuthorizationStatusAuthorized:
            return Consent::Given;
        case AVAuthorizationStatusNotDetermined:
            return Consent::NotAskedYet;
        case AVAuthorizationStatusDenied:
            return Consent::Refused;
        case AVAuthorizationStatusRestricted:
            return Consent::Restricted;
        }
        return Consent::Unknown;
    }
}

Consent accessibilityConsent() {
    // The one with options can also ask the user; this one cannot.
    return AXIsProcessTrusted() != 0 ? Consent::Given : Consent::Refused;
}

Consent automationConsent() {
    switch (EventTarget("com.apple.systemevents").permissionForEverything()) {
    case noErr:
        return Consent::Given;
    case errAEEventNotPermitted:
        return Consent::Refused;
    case errAEEventWouldRequireUserConsent:
        return Consent::NotAskedYet;
    default:
        return Consent::Unknown;
    }
}

QString recognizerProblem() {
    @autoreleasepool {
        SFSpeechRecognizer* recognizer = americanRecognizer();
        if (recognizer == nil) {
            return QStringLiteral("the system does not recognise American English");
        }
        if (!recognizer.available) {
            return QStringLiteral("the system's recogniser is not available at present");
        }
        return {};
    }
}

bool recognizesOnThisMachine() {
    @autoreleasepool {
        return americanRecognizer().supportsOnDeviceRecognition;
    }
}

bool isRunning(const QString& programName) {
    @autoreleasepool {
        NSString* wanted = toNSString(programName);
        for (NSRunningApplication* program in NSWorkspace.sharedWorkspace.runningApplications) {
            if ([program.localizedName isEqualToString:wanted]) {
                return true;
            }
        }
        return false;
    }
}

} // namespace brivandel
