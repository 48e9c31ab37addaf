#include "cli/WaveFile.h"

#include <QByteArray>
#include <QFile>
#include <QtEndian>

#include <sndfile.h>

#include <utility>

namespace brivandel {

namespace {

// The library reads a file that was cut off as a shorter one, without a word. RIFF says how long its data
// should be. An unfinished recording has 0 or -1 there, which promises nothing.
bool isCutOff(QFile& file) {
    file.seek(0);
    const QByteArray riff = file.read(12);
    if (!riff.startsWith("RIFF") || riff.size() < 12 || riff.sliced(8) != "WAVE") {
        return false;
    }
    while (true) {
        const QByteArray header = file.read(8);
        if (header.size() < 8) {
            return true; // ended before any data
        }
        const auto length = qFromLittleEndian<quint32>(header.constData() + 4);
        if (header.startsWith("data")) {
            return length != 0 && length != 0xFFFFFFFF && file.pos() + length > file.size();
        }
        file.seek(file.pos() + length + length % 2);
    }
}

} // namespace

void WaveFile::Closer::operator()(void* file) const {
    sf_close(static_cast<SNDFILE*>(file));
}

WaveFile::WaveFile(Handle file, const AudioFormat& format)
    : file_(std::move(file))
    , format_(format)
    , channels_(format.channelCount) {}

std::variant<WaveFile, QString> WaveFile::open(const std::string& path) {
    QFile plain(QString::fromStdString(path));
    if (!plain.open(QIODevice::ReadOnly)) {
        return plain.errorString();
    }
    if (plain.size() == 0) {
        return QStringLiteral("the file is empty");
    }
    SF_INFO info = {};
    Handle file(sf_open(path.c_str(), SFM_READ, &info));
    if (isCutOff(plain)) {
        return QStringLiteral("the file is cut off: it holds less sound than it says");
    }
    if (!file) {
        return QStringLiteral("no WAV file: ") + QString::fromLocal8Bit(sf_strerror(nullptr));
    }
    if (info.frames == 0) {
        return QStringLiteral("the file holds no sound");
    }
    return WaveFile(std::move(file), {.sampleRateHz = static_cast<double>(info.samplerate),
                                      .channelCount = static_cast<std::uint32_t>(info.channels)});
}

std::optional<AudioBuffer> WaveFile::read(std::uint32_t frameCount) {
    const std::size_t channelCount = format_.channelCount;
    interleaved_.resize(frameCount * channelCount);
    const auto count = sf_readf_float(static_cast<SNDFILE*>(file_.get()), interleaved_.data(), frameCount);
    if (count <= 0) {
        return std::nullopt;
    }
    const auto readFrames = static_cast<std::size_t>(count);
    pointers_.clear();
    for (std::size_t channel = 0; channel < channelCount; ++channel) {
        auto& samples = channels_[channel];
        samples.resize(readFrames);
        for (std::size_t frame = 0; frame < readFrames; ++frame) {
            samples[frame] = interleaved_[frame * channelCount + channel];
        }
        pointers_.push_back(samples.data());
    }
    return AudioBuffer{format_.sampleRateHz, static_cast<std::uint32_t>(readFrames), pointers_};
}

} // namespace brivandel
