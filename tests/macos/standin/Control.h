#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

// How a test plays the system that the adapters stand on here. Main thread; what a framework would do on
// another thread, it does on one, and the function returns when it is done.
namespace standin {

struct Device {
    QString uid;
    QString name;
    std::uint32_t id = 0;
};

struct Input {
    double sampleRateHz = 48000;
    std::uint32_t channelCount = 1;
    bool isInterleaved = false;
    std::uint32_t formatID = 0x6c70636d; ///< 'lpcm'
    std::uint32_t bitsPerChannel = 32;
};

/// The error of a script that fails: under each key a text, a number, or a list of two numbers, which is a
/// range.
using ScriptError = std::vector<std::pair<QString, QVariant>>;

/// Everything that a test may set before, and look at after.
struct World {
    QStringList calls; ///< what was asked of the frameworks, in order

    QString bundleIdentifier = QStringLiteral("org.brivandel.Brivandel"); ///< null: there is no bundle
    QString libraryFolder = QStringLiteral("/Users/player/Library");

    int speechStatus = 3;
    QStringList locales{QStringLiteral("en-US")};
    bool isRecognizerAvailable = true;
    bool recognizesHere = false;
    std::function<void()> duringEndAudio;

    int microphoneStatus = 3;
    std::vector<Device> devices;
    Input input;
    int failingStarts = 0;
    QString startError;
    std::optional<QString> raised; ///< AVFAudio raises this at the next call that can
    std::int32_t deviceStatus = 0;
    int deviceSettings = 0; ///< how often one was set, successfully or not
    bool canObserveHardware = true;
    bool hasAudioUnit = true;
    std::map<std::uint16_t, std::u16string> keys; ///< what each key types
    std::int32_t translationStatus = 0;
    bool hasLayout = true;
    bool layoutHasData = true;

    std::optional<ScriptError> scriptError;
    bool scriptGivesNoInfo = false;
    std::function<void()> duringScript;

    bool canStore = true;
    QByteArray propertyList; ///< what a file is read as: "dictionary", "array", or else it cannot be read

    bool isTrusted = false;
    int automationStatus = -600;
    QStringList runningPrograms;
    bool hasSession = true;
    QString appearance = QStringLiteral("NSAppearanceNameAqua"); ///< null: none that is known
    bool isInFront = false;                                      ///< of all programs
};

World& world();
/// A new world. What lives on from the old one is the test's mistake, and liveObjects() tells.
void reset();

void answerSpeech(int status);
void answerMicrophone(bool granted);
void answerNotifications(bool granted);

/// The newest session hears this; no session hears nothing.
void hear(const QString& text, bool isFinal);
/// The newest session, or the one before it and so on, fails.
void failRecognition(const QString& description, int sessionsBefore = 0);
/// The newest session delivers both at once.
void hearAndFail(const QString& text, const QString& description);
/// Which session is the newest, and the same for one of those before.
const void* newestSession();
void deliverTo(const void* session, const std::optional<QString>& text, bool isFinal,
               const std::optional<QString>& failure);
/// The frames of each channel that were given to the newest request.
std::vector<std::vector<float>> appended();

/// The tap gets one block; none for a channel without data. Nothing happens without a tap or while the engine
/// does not run.
void feed(const std::vector<std::vector<float>>& channels);
void feedWithoutData(std::uint32_t frameCount);
/// The rate or the channels of the hardware have changed, of which the engine that lives tells, on a thread
/// of its own; mostly it stops first. What meanwhile does comes between. The notification holds the engine
/// until beforeItReturns has been called here; an engine that ends with the notification ends the test.
enum class Engine { Stops, GoesOn };
void changeConfiguration(Engine engineThen, const std::function<void()>& meanwhile = {},
                         const std::function<void()>& beforeItReturns = {});
/// Devices come or go, or another becomes the default input, of which the sound system tells likewise.
enum class Inputs { List, Default };
void changeInputs(Inputs what, const std::function<void()>& meanwhile = {});
/// How many listen to that.
std::size_t hardwareListeners();
/// What the program has told the system to be doing, in the bits of its options.
std::uint64_t activity();
/// What AudioUnitSetProperty has set on the engine that lives; 0 for none.
std::uint32_t currentDevice();

/// Puts a foreign object, a real or a signed number there, as another program would.
void storeForeign(const QString& key);
void storeElsewhere(const QString& key, const QVariant& value);
/// What is stored, as the classes of it: "Boolean", "integer", "real", "string", "data", "foreign".
QString storedKind(const QString& key);

void changeAppearance(const QString& name);
/// A button is pressed there, in points from the lower left corner.
void press(double x, double y, bool inAnotherProgram);

/// Of references that Core Foundation's rules make the adapters release.
int unreleasedReferences();
long liveObjects(const char* className);

} // namespace standin
