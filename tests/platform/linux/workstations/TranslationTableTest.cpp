#include "commands/VoiceCommand.h"
#include "engine/BarNavigation.h"
#include "platform/linux/applescript/ScriptParser.h"
#include "platform/linux/applescript/ScriptTranslation.h"
#include "platform/linux/workstations/KnownWorkstations.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <map>

// The table in docs/workstations.md is what the program's own scripts become in every shipped profile, and
// what was seen to come of that when script/test workstations last tried it, or else by what the key is
// known. With BRIVANDEL_WRITE_TABLE=1 in the environment the test writes the table anew instead of comparing
// it.
namespace brivandel {
namespace {

using namespace script;

const QString tableStart = QStringLiteral("<!-- The table begins: a test writes and compares it. -->\n");
const QString tableEnd = QStringLiteral("<!-- The table ends. -->\n");

QString modifiersText(KeyModifiers modifiers) {
    QString text;
    text += modifiers.testFlag(KeyModifier::Command) ? QStringLiteral("Ctrl+") : QString();
    text += modifiers.testFlag(KeyModifier::Option) ? QStringLiteral("Alt+") : QString();
    text += modifiers.testFlag(KeyModifier::Control) ? QStringLiteral("Super+") : QString();
    text += modifiers.testFlag(KeyModifier::Shift) ? QStringLiteral("Shift+") : QString();
    return text;
}

QString keyText(std::uint16_t code) {
    static const std::map<std::uint16_t, QString> names = {
        {36, QStringLiteral("Return")}, {41, QStringLiteral(";")},        {44, QStringLiteral("/")},
        {49, QStringLiteral("Space")},  {75, QStringLiteral("Keypad /")}, {51, QStringLiteral("Backspace")},
        {115, QStringLiteral("Home")},  {124, QStringLiteral("→")}};
    const auto found = names.find(code);
    return found == names.end() ? QStringLiteral("key code %1").arg(code) : found->second;
}

/// The presses of a script, in the order in which they are sent; its waits are left out.
class Presses {
public:
    explicit Presses(const Script& script) { collect(script.body); }
    [[nodiscard]] QString text() const { return presses_.join(QStringLiteral(", ")); }

private:
    template <class S>
    void collect(const std::vector<S>& body) {
        for (const S& statement : body) {
            std::visit([this](const auto& action) { this->note(action); }, statement.action);
        }
    }
    void note(const Keystroke& press) {
        const QString text = press.text == QStringLiteral(" ") ? QStringLiteral("Space")
                             : press.text.size() == 1          ? press.text.toUpper()
                                                               : press.text;
        presses_ += QStringLiteral("`` %1%2 ``").arg(modifiersText(press.modifiers), text);
    }
    void note(const KeyCode& press) {
        presses_ +=
            QStringLiteral("`` %1%2 ``").arg(modifiersText(press.modifiers), keyText(press.virtualKeyCode));
    }
    void note(const TellSystemEvents& tell) { collect(tell.body); }
    void note(const TellProcess& tell) { collect(tell.body); }
    template <class Other>
    void note(const Other& /*pressesNothing*/) {}

    QStringList presses_;
};

/// What a workstation gets of a command.
struct Sent {
    QString text;
    /// Nothing: the text is the sentence that the command fails with.
    bool fails = false;
};

Sent sentFor(const QString& source, const KeyTable& keys) {
    const auto parsed = parseScript(source);
    if (!std::holds_alternative<Script>(parsed)) {
        ADD_FAILURE() << qPrintable(source);
        return {};
    }
    const auto translated = translate(std::get<Script>(parsed), keys, QStringLiteral("Logic Pro"));
    if (const auto* const failure = std::get_if<TranslationFailure>(&translated)) {
        return {failure->sentence, true};
    }
    return {Presses(std::get<Script>(translated)).text()};
}

/// Of a profile's lines, but for comments and what it says of its trials.
QString digestOf(const QString& profilePath) {
    QFile file(profilePath);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(profilePath);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QByteArray text = line.trimmed();
        if (!text.startsWith("//") && !text.startsWith("\"tried\"")) {
            hash.addData(text + '\n');
        }
    }
    return QString::fromLatin1(hash.result().toHex());
}

/// What is written down about the commands of a workstation, for the keys that its profile has; empty when
/// nothing is.
QJsonObject writtenDown(const QString& folder, const QString& profilePath, const char* remedy) {
    QFile file(folder + u'/' + QFileInfo(profilePath).fileName());
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QJsonObject written = QJsonDocument::fromJson(file.readAll()).object();
    EXPECT_FALSE(written.value(QStringLiteral("commands")).toObject().isEmpty())
        << qPrintable(file.fileName());
    EXPECT_EQ(written.value(QStringLiteral("profile")).toString(), digestOf(profilePath))
        << qPrintable(profilePath) << " has changed since " << qPrintable(file.fileName()) << ": " << remedy;
    return written;
}

/// By what the keys of a workstation are known that was not tried.
class Comparison {
public:
    explicit Comparison(const QString& profilePath)
        : commands_(writtenDown(QStringLiteral(COMPARISONS_FOLDER), profilePath,
                                "compare it again, and put its new digest there")
                        .value(QStringLiteral("commands"))
                        .toObject()) {}
    /// As a part of a cell; empty for a workstation whose keys were not compared.
    [[nodiscard]] QString of(const QString& phrase) const {
        const QString known = commands_.value(phrase).toString();
        EXPECT_TRUE(commands_.isEmpty() || !known.isEmpty()) << qPrintable(phrase) << " was not compared";
        return known.isEmpty() ? QString() : QStringLiteral(": ") + known;
    }

private:
    QJsonObject commands_;
};

/// What was seen of a workstation's commands when they were last tried there.
class Sightings {
public:
    explicit Sightings(const QString& profilePath) {
        const QJsonObject sightings = writtenDown(QStringLiteral(SIGHTINGS_FOLDER), profilePath,
                                                  "script/test workstations tries it again");
        commands_ = sightings.value(QStringLiteral("commands")).toObject();
        version_ = sightings.value(QStringLiteral("version")).toString();
        EXPECT_EQ(commands_.isEmpty(), version_.isEmpty()) << qPrintable(profilePath);
    }
    [[nodiscard]] QString version() const {
        return commands_.isEmpty() ? QStringLiteral("not tried") : version_;
    }
    /// As a part of a cell; empty for a workstation that was not tried.
    [[nodiscard]] QString of(const QString& phrase) const {
        const QJsonObject seen = commands_.value(phrase).toObject();
        if (seen.isEmpty()) {
            EXPECT_TRUE(commands_.isEmpty()) << qPrintable(phrase) << " was not tried";
            return {};
        }
        return QStringLiteral(": %1 (%2%3)")
            .arg(seen.value(QStringLiteral("outcome")).toString(),
                 seen.value(QStringLiteral("seen by")).toString(),
                 seen.value(QStringLiteral("spoken")).toBool() ? QStringLiteral("; spoken") : QString());
    }

private:
    QJsonObject commands_;
    QString version_;
};

QString table(const std::vector<KnownWorkstation>& workstations) {
    std::vector<Sightings> sightings;
    std::vector<Comparison> comparisons;
    QString text = QStringLiteral("| Say | As written");
    QString rule = QStringLiteral("|---|---");
    for (const KnownWorkstation& workstation : workstations) {
        sightings.emplace_back(workstation.path);
        comparisons.emplace_back(workstation.path);
        text += QStringLiteral(" | %1 (%2)").arg(workstation.profile.name, sightings.back().version());
        rule += QStringLiteral("|---");
    }
    text += QStringLiteral(" |\n") + rule + QStringLiteral("|\n");
    const auto addRow = [&](const QString& phrase, const QString& script) {
        const QString written = sentFor(script, {}).text;
        text += QStringLiteral("| %1 | %2").arg(phrase, written);
        for (std::size_t index = 0; index < workstations.size(); ++index) {
            const Sent sent = sentFor(script, *workstations[index].profile.keys);
            text += QStringLiteral(" | ") + (sent.text == written ? QStringLiteral("the same") : sent.text) +
                    (sent.fails ? QString() : sightings[index].of(phrase) + comparisons[index].of(phrase));
        }
        text += QStringLiteral(" |\n");
    };
    for (const VoiceCommand command : allVoiceCommands) {
        addRow(rawValue(command), appleScript(command));
    }
    addRow(QStringLiteral("go to bar 25"), barNavigationScript({25, false}));
    addRow(QStringLiteral("play from bar 25"), barNavigationScript({25, true}));
    return text;
}

TEST(TranslationTable, EveryScriptThroughEveryShippedProfile_IsAsDocumented) {
    QFile file(QStringLiteral(TABLE_FILE));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite)) << TABLE_FILE;
    const QString text = QString::fromUtf8(file.readAll());
    const qsizetype start = text.indexOf(tableStart) + tableStart.size();
    const qsizetype end = text.indexOf(tableEnd);
    ASSERT_TRUE(text.contains(tableStart) && end >= start) << "the marks of the table are missing";

    const QString expected = table(readKnownWorkstations(QString()).all);
    if (qEnvironmentVariableIsSet("BRIVANDEL_WRITE_TABLE")) {
        ASSERT_TRUE(file.resize(0));
        file.write((text.left(start) + expected + text.mid(end)).toUtf8());
        GTEST_SKIP() << "wrote the table";
    }
    EXPECT_EQ(text.mid(start, end - start), expected) << "BRIVANDEL_WRITE_TABLE=1 writes it anew";
}

} // namespace
} // namespace brivandel
