#pragma once

#include <functional>

namespace brivandel {

/// The user's answer about speech recognition, with the platform's numbers; other numbers may come.
enum class SpeechAuthorization : int { NotDetermined = 0, Denied = 1, Restricted = 2, Authorized = 3 };

/// Asks the user, or the system, for what listening needs. Requests are made on the main thread and return at
/// once; the answers come on any thread.
class Permissions {
public:
    virtual ~Permissions() = default;
    virtual void requestSpeechAuthorization(std::function<void(SpeechAuthorization)> answer) = 0;
    virtual void requestMicrophoneAccess(std::function<void(bool granted)> answer) = 0;
    /// For alerts and sounds; the answer is nobody's concern.
    virtual void requestNotificationAuthorization() = 0;
};

} // namespace brivandel
