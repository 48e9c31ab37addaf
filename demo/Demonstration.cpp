// Shows the main job, from a spoken command to a key in another program's window, and says step by step what
// happened.
//
// demonstration [WORD...]: what is said, "hey logic play" if nothing is given. Ends with 1 when the key did
// not arrive.

#include "cli/WaveFile.h"

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <nlohmann/json.hpp>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <stdexcept>

namespace {

using namespace std::chrono_literals;
using nlohmann::json;

constexpr auto patience =
    30s; // for any one thing to happen; a slow machine needs a few seconds to start a window

class Failure : public std::runtime_error {
public:
    explicit Failure(const QString& what) : std::runtime_error(what.toStdString()) {}
};

void say(const char* step, const QString& text) {
    QString indented = text;
    indented.replace(u'\n', QStringLiteral("\n              "));
    std::printf("  %-10s  %s\n", step, qPrintable(indented));
    std::fflush(stdout);
}

// A program whose output is JSON, a line an event.
class EventSource {
public:
    EventSource(const QString& program, const QStringList& arguments, const QProcessEnvironment& environment)
        : program_(program) {
        process_.setProcessEnvironment(environment);
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(program, arguments);
    }

    ~EventSource() {
        process_.closeWriteChannel();
        process_.terminate();
        if (!process_.waitForFinished()) {
            process_.kill();
            process_.waitForFinished();
        }
    }

    EventSource(const EventSource&) = delete;
    EventSource& operator=(const EventSource&) = delete;

    // The next event; none when the program has ended.
    std::optional<json> next() {
        while (!process_.canReadLine()) {
            const auto limit = std::chrono::duration_cast<std::chrono::milliseconds>(patience);
            if (!process_.waitForReadyRead(static_cast<int>(limit.count()))) {
                if (process_.error() == QProcess::FailedToStart) {
                    throw Failure(QStringLiteral("%1 could not be started").arg(program_));
                }
                if (process_.state() == QProcess::Running) {
                    throw Failure(QStringLiteral("%1 says nothing more").arg(program_));
                }
                return std::nullopt;
            }
        }
        return json::parse(process_.readLine().toStdString());
    }

private:
    QString program_;
    QProcess process_;
};

QString builtProgram(const QString& name) {
    return QCoreApplication::applicationDirPath() + u'/' + name;
}

// The demonstration must not depend on the user's settings, nor press a key in the user's workstation.
QProcessEnvironment environmentOfItsOwn(const QString& folder) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("BRIVANDEL_TARGET"));
    environment.insert(QStringLiteral("HOME"), folder);
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder);
    environment.insert(QStringLiteral("XDG_STATE_HOME"), folder);
    return environment;
}

QString speak(const QString& phrase, const QString& folder) {
    QString path = folder + QStringLiteral("/command.wav");
    if (QProcess::execute(QStringLiteral("flite"),
                          {QStringLiteral("-voice"), QStringLiteral("slt"), QStringLiteral("-t"), phrase,
                           QStringLiteral("-o"), path}) != 0) {
        throw Failure(QStringLiteral("the voice (flite, Debian package flite) could not speak"));
    }
    return path;
}

// Seconds into the file at which its last sound ends: 40 dB below the loudest sample is silence.
double endOfSpeech(const QString& path) {
    auto opened = brivandel::WaveFile::open(path.toStdString());
    if (const auto* reason = std::get_if<QString>(&opened)) {
        throw Failure(*reason);
    }
    auto& file = std::get<brivandel::WaveFile>(opened);
    std::vector<float> samples;
    constexpr std::uint32_t blockFrameCount = 1024;
    while (const auto block = file.read(blockFrameCount)) {
        samples.insert(samples.end(), block->channels[0], block->channels[0] + block->frameLength);
    }
    float loudest = 0;
    for (const float sample : samples) {
        loudest = std::max(loudest, std::abs(sample));
    }
    constexpr float silence = 0.01F;
    auto last = samples.size();
    while (last > 0 && std::abs(samples[last - 1]) < loudest * silence) {
        --last;
    }
    return static_cast<double>(last) / file.format().sampleRateHz;
}

QString text(const json& event, const char* member) {
    return QString::fromStdString(event.value(member, std::string()));
}

// Where the sound began on the clock that the window stamps its keys with, if the command came to a script
// that worked.
double follow(EventSource& listening) {
    std::optional<double> began;
    bool isDone = false;
    while (const auto event = listening.next()) {
        const std::string name = event->value("event", "");
        if (name == "began") {
            began = event->value("monotonic", 0.0);
        } else if (name == "heard") {
            say("heard", QStringLiteral("\"%1\" at %2 s")
                             .arg(text(*event, "text"))
                             .arg(event->value("t", 0.0), 0, 'f', 2));
        } else if (name == "command") {
            const QString trigger = text(*event, "trigger");
            say("matched",
                text(*event, "command") +
                    (trigger.isEmpty() ? QString() : QStringLiteral(", by the trigger \"%1\"").arg(trigger)));
            say("script", text(*event, "script"));
        } else if (name == "script") {
            if (event->contains("error")) {
                throw Failure(QStringLiteral("the script failed: ") +
                              QString::fromStdString(event->at("error").dump()));
            }
            isDone = true;
        }
    }
    if (!isDone || !began) {
        throw Failure(QStringLiteral("no command was carried out"));
    }
    return *began;
}

void demonstrate(const QString& phrase) {
    const QTemporaryDir folder;
    const QProcessEnvironment environment = environmentOfItsOwn(folder.path());
    EventSource window(builtProgram(QStringLiteral("Logic Pro")), {}, environment);
    const auto ready = window.next();
    if (!ready || ready->value("event", "") != "ready") {
        throw Failure(QStringLiteral("the window of \"Logic Pro\" did not open"));
    }
    say("window", QStringLiteral("a process called \"Logic Pro\" has the keyboard"));

    const QString sound = speak(phrase, folder.path());
    const double speechEnd = endOfSpeech(sound);
    say("spoken", QStringLiteral("\"%1\", %2 s, into the recogniser at the pace of a microphone")
                      .arg(phrase)
                      .arg(speechEnd, 0, 'f', 2));

    EventSource listening(builtProgram(QStringLiteral("brivandel")),
                          {QStringLiteral("listen"), QStringLiteral("--json"), QStringLiteral("--real-time"),
                           QStringLiteral("--target"), QStringLiteral("Logic Pro"), sound},
                          environment);
    const double began = follow(listening);

    const auto key = window.next();
    if (!key || key->value("event", "") != "key") {
        throw Failure(QStringLiteral("the key did not arrive"));
    }
    say("arrived", QStringLiteral("the key \"%1\" (key code %2) in the window of \"Logic Pro\"")
                       .arg(text(*key, "keysym"))
                       .arg(key->value("keyCode", -1)));
    say("delay", QStringLiteral("%1 s from the end of speech to the key")
                     .arg(key->value("t", 0.0) - began - speechEnd, 0, 'f', 2));
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    const QString given = QCoreApplication::arguments().sliced(1).join(u' ');
    const QString phrase = given.isEmpty() ? QStringLiteral("hey logic play") : given;
    std::printf("Brivandel: a spoken command becomes a key press\n\n");
    try {
        demonstrate(phrase);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "demonstration: %s\n", failure.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
