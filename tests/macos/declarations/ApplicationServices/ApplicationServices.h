// What the adapters use of Application Services, written from its public documentation. Each declaration names its page.
// Read a second time, against the published bindings of others: all.
#pragma once
#include <CoreFoundation/CoreFoundation.h>
#include <CoreServices/CoreServices.h>

extern "C" Boolean AXIsProcessTrusted(void); // Application Services: AXIsProcessTrusted
