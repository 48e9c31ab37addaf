#pragma once

#include "Control.h"

#include <QString>

#include <gtest/gtest.h>

#include <ostream>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE

namespace brivandel {

/// Each test has a world of its own, and leaves nothing alive that it made.
class AdapterTest : public testing::Test {
protected:
    AdapterTest() { standin::reset(); }
    ~AdapterTest() override {
        for (const char* kind :
             {"AVAudioEngine", "AVAudioInputNode", "AVAudioPCMBuffer", "SFSpeechRecognizer",
              "SFSpeechRecognitionTask", "SFSpeechAudioBufferRecognitionRequest", "NSAppleScript",
              "StandinMonitor", "StandinNotificationToken", "BrivandelAppearanceObserver",
              "BrivandelNotificationPresenter", "StandinActivity"}) {
            EXPECT_EQ(standin::liveObjects(kind), 0) << kind;
        }
        EXPECT_EQ(standin::unreleasedReferences(), 0);
        EXPECT_EQ(standin::hardwareListeners(), 0U);
    }
    AdapterTest(const AdapterTest&) = delete;
    AdapterTest& operator=(const AdapterTest&) = delete;

    /// What was asked of the frameworks since the last time.
    static QStringList calls() { return std::exchange(standin::world().calls, {}); }
    static standin::World& world() { return standin::world(); }
};

} // namespace brivandel
