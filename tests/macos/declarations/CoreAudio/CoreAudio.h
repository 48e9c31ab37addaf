// What the adapters use of Core Audio, written from its public documentation. Each declaration names its page.
// Read a second time, against the published bindings of others: all.
#pragma once
#include <CoreFoundation/CoreFoundation.h>
#include <dispatch/dispatch.h>

typedef UInt32 AudioObjectID;               // Core Audio: AudioObjectID
typedef AudioObjectID AudioDeviceID;        // Core Audio: AudioDeviceID
typedef UInt32 AudioObjectPropertySelector; // Core Audio: AudioObjectPropertySelector
typedef UInt32 AudioObjectPropertyScope;    // Core Audio: AudioObjectPropertyScope
typedef UInt32 AudioObjectPropertyElement;  // Core Audio: AudioObjectPropertyElement

// Core Audio: AudioObjectPropertyAddress
struct AudioObjectPropertyAddress {
    AudioObjectPropertySelector mSelector;
    AudioObjectPropertyScope mScope;
    AudioObjectPropertyElement mElement;
};
typedef struct AudioObjectPropertyAddress AudioObjectPropertyAddress;

enum : AudioObjectID {
    kAudioObjectUnknown = 0,      // Core Audio: kAudioObjectUnknown
    kAudioObjectSystemObject = 1, // Core Audio: kAudioObjectSystemObject
};
enum : AudioObjectPropertySelector {
    kAudioHardwarePropertyDevices = 'dev#',              // Core Audio: kAudioHardwarePropertyDevices
    kAudioHardwarePropertyDefaultInputDevice = 'dIn ',   // Core Audio: kAudioHardwarePropertyDefaultInputDevice
    kAudioHardwarePropertyTranslateUIDToDevice = 'uidd', // Core Audio: kAudioHardwarePropertyTranslateUIDToDevice
};
// Core Audio: kAudioObjectPropertyScopeGlobal
enum : AudioObjectPropertyScope { kAudioObjectPropertyScopeGlobal = 'glob' };
// Core Audio: kAudioObjectPropertyElementMain (macOS 12)
enum : AudioObjectPropertyElement { kAudioObjectPropertyElementMain = 0 };

typedef UInt32 AudioFormatID;    // Core Audio Types: AudioFormatID
typedef UInt32 AudioFormatFlags; // Core Audio Types: AudioFormatFlags
// Core Audio Types: AudioStreamBasicDescription
struct AudioStreamBasicDescription {
    Float64 mSampleRate;
    AudioFormatID mFormatID;
    AudioFormatFlags mFormatFlags;
    UInt32 mBytesPerPacket;
    UInt32 mFramesPerPacket;
    UInt32 mBytesPerFrame;
    UInt32 mChannelsPerFrame;
    UInt32 mBitsPerChannel;
    UInt32 mReserved;
};
typedef struct AudioStreamBasicDescription AudioStreamBasicDescription;

// Core Audio: AudioObjectGetPropertyData
extern "C" OSStatus AudioObjectGetPropertyData(AudioObjectID inObjectID,
                                               const AudioObjectPropertyAddress* _Nonnull inAddress,
                                               UInt32 inQualifierDataSize, const void* _Nullable inQualifierData,
                                               UInt32* _Nonnull ioDataSize, void* _Nonnull outData);

// Core Audio: AudioObjectPropertyListenerBlock
typedef void (^AudioObjectPropertyListenerBlock)(UInt32 inNumberAddresses,
                                                 const AudioObjectPropertyAddress* _Nonnull inAddresses);
extern "C" {
// Core Audio: AudioObjectAddPropertyListenerBlock
OSStatus AudioObjectAddPropertyListenerBlock(AudioObjectID inObjectID,
                                             const AudioObjectPropertyAddress* _Nonnull inAddress,
                                             dispatch_queue_t _Nullable inDispatchQueue,
                                             AudioObjectPropertyListenerBlock _Nonnull inListener);
// Core Audio: AudioObjectRemovePropertyListenerBlock
OSStatus AudioObjectRemovePropertyListenerBlock(AudioObjectID inObjectID,
                                                const AudioObjectPropertyAddress* _Nonnull inAddress,
                                                dispatch_queue_t _Nullable inDispatchQueue,
                                                AudioObjectPropertyListenerBlock _Nonnull inListener);
}
