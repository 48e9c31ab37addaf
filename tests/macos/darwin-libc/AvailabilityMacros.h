// Stands in for the Darwin header of this name: the older names of the same versions.
#pragma once
#define MAC_OS_X_VERSION_MIN_REQUIRED 130000
#define MAC_OS_X_VERSION_MAX_ALLOWED 140000
