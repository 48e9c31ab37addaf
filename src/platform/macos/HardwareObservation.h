#pragma once

// For Objective-C++ files alone.
#import <CoreAudio/CoreAudio.h>

namespace brivandel {

/// Runs a block each time that a property of the sound system changes, on a thread of the system's, until
/// this goes. It does not wait for a block that runs at that moment. A property that cannot be observed never
/// changes.
class HardwareObservation {
public:
    HardwareObservation(AudioObjectPropertySelector property, void (^_Nonnull changed)(void))
        : address_{property, kAudioObjectPropertyScopeGlobal, kAudioObjectPropertyElementMain}
        , block_(^(UInt32, const AudioObjectPropertyAddress*) {
          changed();
        }) {
        // Without a queue, the system runs it where it notices the change.
        isObserving_ =
            AudioObjectAddPropertyListenerBlock(kAudioObjectSystemObject, &address_, nil, block_) == noErr;
    }
    ~HardwareObservation() {
        if (isObserving_) {
            AudioObjectRemovePropertyListenerBlock(kAudioObjectSystemObject, &address_, nil, block_);
        }
    }
    HardwareObservation(const HardwareObservation&) = delete;
    HardwareObservation& operator=(const HardwareObservation&) = delete;

private:
    AudioObjectPropertyAddress address_;
    AudioObjectPropertyListenerBlock _Nonnull block_; // by which it is found again
    bool isObserving_ = false;
};

} // namespace brivandel
