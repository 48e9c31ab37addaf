// What the adapters use of Audio Toolbox, written from its public documentation. Each declaration names its page.
// Read a second time, against the published bindings of others: all.
#pragma once
#include <CoreAudio/CoreAudio.h>

typedef struct OpaqueAudioComponentInstance* AudioComponentInstance; // Audio Toolbox: AudioComponentInstance
typedef AudioComponentInstance AudioUnit;                            // Audio Toolbox: AudioUnit
typedef UInt32 AudioUnitPropertyID;                                  // Audio Toolbox: AudioUnitPropertyID
typedef UInt32 AudioUnitScope;                                       // Audio Toolbox: AudioUnitScope
typedef UInt32 AudioUnitElement;                                     // Audio Toolbox: AudioUnitElement

// Audio Toolbox: kAudioOutputUnitProperty_CurrentDevice
enum : AudioUnitPropertyID { kAudioOutputUnitProperty_CurrentDevice = 2000 };
// Audio Toolbox: kAudioUnitScope_Global
enum : AudioUnitScope { kAudioUnitScope_Global = 0 };
// Audio Toolbox: kAudioUnitErr_Uninitialized
enum : OSStatus { kAudioUnitErr_Uninitialized = -10867 };

// Audio Toolbox: AudioUnitSetProperty
extern "C" OSStatus AudioUnitSetProperty(AudioUnit _Nonnull inUnit, AudioUnitPropertyID inID, AudioUnitScope inScope,
                                         AudioUnitElement inElement, const void* _Nullable inData, UInt32 inDataSize);
