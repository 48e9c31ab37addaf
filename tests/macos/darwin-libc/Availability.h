// Stands in for the Darwin header of this name: the system versions that Qt's headers ask for.
#pragma once
#define __MAC_OS_X_VERSION_MIN_REQUIRED 130000
#define __MAC_OS_X_VERSION_MAX_ALLOWED 140000
