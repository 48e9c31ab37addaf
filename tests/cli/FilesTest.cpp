#include "cli/CommandLineRun.h"

#include <QtEndian>

#include <gmock/gmock.h>

namespace brivandel {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

QByteArray littleEndian(quint32 value, qsizetype size) {
    QByteArray bytes(4, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes.first(size);
}

// A WAV file of 16-bit mono silence at 16 kHz.
QByteArray silence(quint32 frameCount) {
    const quint32 dataSize = frameCount * 2;
    return "RIFF" + littleEndian(36 + dataSize, 4) + "WAVEfmt " + littleEndian(16, 4) + littleEndian(1, 2) +
           littleEndian(1, 2) + littleEndian(16000, 4) + littleEndian(32000, 4) + littleEndian(2, 2) +
           littleEndian(16, 2) + "data" + littleEndian(dataSize, 4) +
           QByteArray(static_cast<qsizetype>(dataSize), '\0');
}

struct BadFile {
    const char* name;
    QByteArray bytes;
    const char* reason;
};

class BadSound : public CommandLineTest, public testing::WithParamInterface<BadFile> {};

TEST_P(BadSound, ListenAndTranscribe_EndWithOneAndNameIt) {
    const std::string path = writeFile(QString::fromLatin1(GetParam().name), GetParam().bytes);
    for (const char* command : {"listen", "transcribe"}) {
        const auto result = run({command, path.c_str()});
        EXPECT_EQ(result.status, 1);
        EXPECT_THAT(result.out, IsEmpty());
        EXPECT_THAT(result.err,
                    HasSubstr(std::string("brivandel ") + command + ": " + path + ": " + GetParam().reason));
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1);
    }
}

INSTANTIATE_TEST_SUITE_P(
    CommandLineTest, BadSound,
    testing::Values(BadFile{"empty.wav", "", "the file is empty"},
                    BadFile{"text.wav", "this is no sound at all, but long enough to be looked at",
                            "no WAV file: "},
                    BadFile{"short.wav", silence(1000).chopped(500), "the file is cut off"},
                    BadFile{"header.wav", silence(1000).first(30), "the file is cut off"},
                    BadFile{"silent.wav", silence(0), "the file holds no sound"}));

TEST_F(CommandLineTest, MissingFile_IsNamed) {
    const auto result = run({"listen", "/nonexistent.wav"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "brivandel listen: /nonexistent.wav: No such file or directory\n");
}

TEST_F(CommandLineTest, OneBadFile_DoesNotKeepTheOthersFromBeingHeard) {
    const std::string bad = writeFile(QStringLiteral("bad.wav"), "");
    const std::string good = writeFile(QStringLiteral("good.wav"), silence(8000));
    const auto result = run({"listen", "--dry-run", bad.c_str(), good.c_str()});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1);
}

TEST_F(CommandLineTest, Silence_IsHeardAsNothing) {
    const std::string path = writeFile(QStringLiteral("silence.wav"), silence(48000));
    const auto result = run({"listen", "--dry-run", "--json", path.c_str()});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, IsEmpty());
    EXPECT_THAT(result.err, IsEmpty());
}

} // namespace
} // namespace brivandel
