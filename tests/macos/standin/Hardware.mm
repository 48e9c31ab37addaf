#include "Control.h"
#include "Doubles.h"

#import <CoreAudio/CoreAudio.h>
#import <Foundation/Foundation.h>

#include <algorithm>
#include <cstring>
#include <vector>

using namespace standin;

OSStatus AudioObjectGetPropertyData(AudioObjectID inObjectID, const AudioObjectPropertyAddress* inAddress,
                                    UInt32 inQualifierDataSize, const void* inQualifierData,
                                    UInt32* ioDataSize, void* outData) {
    if (inObjectID != kAudioObjectSystemObject ||
        inAddress->mSelector != kAudioHardwarePropertyTranslateUIDToDevice ||
        inAddress->mScope != kAudioObjectPropertyScopeGlobal || inQualifierDataSize != sizeof(CFStringRef) ||
        *ioDataSize != sizeof(AudioDeviceID)) {
        return -50;
    }
    CFStringRef reference = nullptr;
    std::memcpy(&reference, inQualifierData, sizeof reference);
    const QString uid = characters((__bridge NSString*)reference);
    AudioDeviceID found = kAudioObjectUnknown;
    for (const Device& device : world().devices) {
        found = device.uid == uid ? device.id : found;
    }
    std::memcpy(outData, &found, sizeof found);
    return noErr;
}

namespace {

struct Listener {
    AudioObjectPropertySelector property;
    AudioObjectPropertyListenerBlock block;
};

bool isOfTheSystem(AudioObjectID object, const AudioObjectPropertyAddress& address) {
    return object == kAudioObjectSystemObject && address.mScope == kAudioObjectPropertyScopeGlobal &&
           address.mElement == kAudioObjectPropertyElementMain;
}

std::vector<Listener>& listeners() {
    static std::vector<Listener> listeners;
    return listeners;
}

} // namespace

OSStatus AudioObjectAddPropertyListenerBlock(AudioObjectID inObjectID,
                                             const AudioObjectPropertyAddress* inAddress,
                                             dispatch_queue_t inDispatchQueue,
                                             AudioObjectPropertyListenerBlock inListener) {
    if (!isOfTheSystem(inObjectID, *inAddress) || !world().canObserveHardware) {
        return -50;
    }
    listeners().push_back({inAddress->mSelector, [inListener copy]});
    return noErr;
}

// A listener is known by its block: another block of the same text is another listener.
OSStatus AudioObjectRemovePropertyListenerBlock(AudioObjectID inObjectID,
                                                const AudioObjectPropertyAddress* inAddress,
                                                dispatch_queue_t inDispatchQueue,
                                                AudioObjectPropertyListenerBlock inListener) {
    const auto removed = std::erase_if(listeners(), [&](const Listener& each) {
        return isOfTheSystem(inObjectID, *inAddress) && each.property == inAddress->mSelector &&
               (__bridge void*)each.block == (__bridge void*)inListener;
    });
    return removed == 1 ? noErr : -50;
}

std::size_t standin::hardwareListeners() {
    return listeners().size();
}

void standin::changeInputs(Inputs what, const std::function<void()>& meanwhile) {
    @autoreleasepool {
        const AudioObjectPropertyAddress address{
            what == Inputs::Default ? AudioObjectPropertySelector{kAudioHardwarePropertyDefaultInputDevice}
                                    : AudioObjectPropertySelector{kAudioHardwarePropertyDevices},
            kAudioObjectPropertyScopeGlobal, kAudioObjectPropertyElementMain};
        std::vector<AudioObjectPropertyListenerBlock> told;
        for (const Listener& listener : listeners()) {
            if (listener.property == address.mSelector) {
                told.push_back(listener.block);
            }
        }
        if (meanwhile) {
            meanwhile();
        }
        elsewhere([&] {
            for (const auto& block : told) {
                block(1, &address);
            }
        });
    }
}
