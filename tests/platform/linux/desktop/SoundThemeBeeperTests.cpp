#include "platform/linux/audio/EngineFixture.h"
#include "platform/linux/desktop/AlertTone.h"
#include "platform/linux/desktop/SoundThemeBeeper.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

class WaitingLog final : public DiagnosticLog {
public:
    void write(const QString& message) override {
        const std::lock_guard lock(mutex_);
        lines_.append(message);
        written_.notify_all();
    }
    QStringList lines(qsizetype count, std::chrono::seconds patience) {
        std::unique_lock lock(mutex_);
        written_.wait_for(lock, patience, [&] { return lines_.size() >= count; });
        return lines_;
    }

private:
    std::mutex mutex_;
    std::condition_variable written_;
    QStringList lines_;
};

} // namespace

/// Listens, by the microphone vmic, to what is played on the default output.
class SoundThemeBeeperTest : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        installTap();
        startAndCollect(2);
    }

    /// The samples from the first loud block on, so many blocks; none when it stays silent.
    std::vector<float> nextSound(std::size_t blockCount) {
        const auto deadline = std::chrono::steady_clock::now() + patience;
        while (std::chrono::steady_clock::now() < deadline) {
            auto samples = channelOf(blocks_.next(blockCount, patience), 0);
            if (std::ranges::any_of(samples, [](float sample) { return std::abs(sample) > 0.01F; })) {
                return samples;
            }
        }
        return {};
    }

    WaitingLog log_;
};

TEST_F(SoundThemeBeeperTest, Beep_PlaysTheThemesBell) {
    SoundThemeBeeper beeper(log_);
    beeper.beep();
    EXPECT_FALSE(nextSound(4).empty());
    EXPECT_TRUE(pactl({QStringLiteral("list"), QStringLiteral("samples")}).contains(QStringLiteral("bell")))
        << "the server keeps the bell of the theme";
    EXPECT_TRUE(log_.lines(0, 0s).isEmpty());
}

TEST_F(SoundThemeBeeperTest, AlertTone_IsHeard) {
    EXPECT_EQ(playAlertTone(), std::nullopt);
    // It may have come and gone in the blocks before: it is played again while they are collected.
    std::jthread player([] { std::ignore = playAlertTone(); });
    const auto samples = nextSound(6);
    ASSERT_FALSE(samples.empty());
    EXPECT_GT(toneAmplitude(samples, 880, 48000), 5 * toneAmplitude(samples, 600, 48000));
}

TEST(SoundThemeBeeper, NoServer_IsSaidOnceInTheLog) {
    const QByteArray address = qgetenv("PULSE_SERVER");
    qputenv("PULSE_SERVER", "unix:/nonexistent/native");
    WaitingLog log;
    {
        SoundThemeBeeper beeper(log);
        beeper.beep();
        EXPECT_EQ(log.lines(1, 20s).size(), 1);
        beeper.beep();
    }
    qputenv("PULSE_SERVER", address);
    EXPECT_EQ(log.lines(0, 0s).size(), 1);
}

TEST(AlertTone, Samples_StartAndEndSilentAndAreNotFullScale) {
    const auto samples = alertTone();
    EXPECT_EQ(samples.front(), 0.0F);
    EXPECT_LT(std::abs(samples.back()), 0.01F);
    const auto loudest = std::ranges::max(samples);
    EXPECT_GT(loudest, 0.1F);
    EXPECT_LT(loudest, 0.5F);
}

} // namespace brivandel
