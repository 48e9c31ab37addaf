// What the adapters use of Core Services (Apple events), written from its public documentation. Each declaration names its
// page.
// Read a second time, against the published bindings of others: all.
#pragma once
#include <CoreFoundation/CoreFoundation.h>

typedef FourCharCode DescType;     // Core Services: DescType
typedef FourCharCode AEEventClass; // Core Services: AEEventClass
typedef FourCharCode AEEventID;    // Core Services: AEEventID
typedef struct OpaqueAEDataStorageType* AEDataStorageType; // Core Services: AEDataStorageType
typedef AEDataStorageType* AEDataStorage;                  // Core Services: AEDataStorage

// Core Services: AEDesc. Its members are packed on two bytes.
#pragma pack(push, 2)
struct AEDesc {
    DescType descriptorType;
    AEDataStorage dataHandle;
};
#pragma pack(pop)
typedef struct AEDesc AEDesc;
typedef AEDesc AEAddressDesc; // Core Services: AEAddressDesc

enum : DescType {
    typeApplicationBundleID = 'bund', // Core Services: typeApplicationBundleID
    typeWildCard = '****',            // Core Services: typeWildCard
};
enum : int {
    errAEEventNotPermitted = -1743,            // Core Services: errAEEventNotPermitted
    errAEEventWouldRequireUserConsent = -1744, // Core Services: errAEEventWouldRequireUserConsent
};

extern "C" {
// Core Services: AECreateDesc
OSErr AECreateDesc(DescType typeCode, const void* _Nullable dataPtr, Size dataSize, AEDesc* _Nonnull result);
// Core Services: AEDisposeDesc
OSErr AEDisposeDesc(AEDesc* _Nonnull theAEDesc);
// Core Services: AEDeterminePermissionToAutomateTarget (macOS 10.14)
OSStatus AEDeterminePermissionToAutomateTarget(const AEAddressDesc* _Nonnull target, AEEventClass theAEEventClass,
                                               AEEventID theAEEventID, Boolean askUserIfNeeded);
}
