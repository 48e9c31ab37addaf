#pragma once

// For Objective-C++ files alone.
#import <CoreFoundation/CoreFoundation.h>

namespace brivandel {

/// Owns one Core Foundation reference, as a function with Create or Copy in its name gives it; may hold none.
template <typename Reference>
class CfHolder {
public:
    explicit CfHolder(Reference reference) : reference_(reference) {}
    ~CfHolder() {
        if (reference_ != nullptr) {
            CFRelease(reference_);
        }
    }
    CfHolder(const CfHolder&) = delete;
    CfHolder& operator=(const CfHolder&) = delete;

    [[nodiscard]] Reference get() const { return reference_; }
    [[nodiscard]] explicit operator bool() const { return reference_ != nullptr; }

private:
    Reference reference_;
};

} // namespace brivandel
