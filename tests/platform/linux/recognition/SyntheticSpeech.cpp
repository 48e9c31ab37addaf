#include "platform/linux/recognition/SyntheticSpeech.h"

#include <QFile>
#include <QProcess>

#include <cstring>

namespace brivandel {

namespace {

bool run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

void appendSilence(std::vector<float>& samples, std::chrono::milliseconds time, int rateHz) {
    samples.resize(samples.size() + static_cast<std::size_t>(time.count() * rateHz / 1000));
}

} // namespace

std::vector<float> SyntheticSpeech::speakPart(const QString& voice, const QString& text, int rateHz) {
    const QString key = QStringLiteral("%1 %2 %3").arg(voice).arg(rateHz).arg(text);
    if (!spoken_.contains(key)) {
        const QString wave = folder_.filePath(QStringLiteral("spoken.wav"));
        const QString raw = folder_.filePath(QStringLiteral("spoken.f32"));
        // -R: without chance in the dither, so that every run hears the same.
        if (!run(QStringLiteral("flite"),
                 {QStringLiteral("-voice"), voice, QStringLiteral("-t"), text, QStringLiteral("-o"), wave}) ||
            !run(QStringLiteral("sox"),
                 {QStringLiteral("-R"), wave, QStringLiteral("-r"), QString::number(rateHz),
                  QStringLiteral("-c"), QStringLiteral("1"), QStringLiteral("-t"), QStringLiteral("f32"), raw,
                  QStringLiteral("norm"), QStringLiteral("-6")})) {
            return {};
        }
        QFile file(raw);
        if (!file.open(QIODevice::ReadOnly)) {
            return {};
        }
        const QByteArray bytes = file.readAll();
        std::vector<float> samples(static_cast<std::size_t>(bytes.size()) / sizeof(float));
        std::memcpy(samples.data(), bytes.constData(), samples.size() * sizeof(float));
        spoken_.insert(key, samples);
    }
    return spoken_.value(key);
}

Sound SyntheticSpeech::speak(const QString& voice, const QStringList& parts, std::chrono::milliseconds pause,
                             int rateHz, std::uint32_t channelCount) {
    using namespace std::chrono_literals;
    Sound sound{static_cast<double>(rateHz), channelCount, {}};
    appendSilence(sound.samples, 400ms, rateHz);
    for (const QString& part : parts) {
        const std::vector<float> spoken = speakPart(voice, part, rateHz);
        if (spoken.empty()) {
            return {};
        }
        if (&part != &parts.front()) {
            appendSilence(sound.samples, pause, rateHz);
        }
        sound.samples.insert(sound.samples.end(), spoken.begin(), spoken.end());
    }
    appendSilence(sound.samples, 600ms, rateHz);
    return sound;
}

} // namespace brivandel
