#pragma once

#include "platform/linux/keys/KeySender.h"

#include <QString>

#include <cstdint>
#include <ostream>
#include <variant>
#include <vector>

namespace brivandel::testing {

/// A key as a script asks for it: a place on the keyboard, or a character.
struct ExpectedKey {
    std::variant<std::uint16_t, QString> key;
    KeyModifiers modifiers;
};

/// A script that the program writes, and the keys that it has to press.
struct ProgramScript {
    const char* name;
    QString source;
    std::vector<ExpectedKey> keys;
};

inline void PrintTo(const ProgramScript& script, std::ostream* out) {
    *out << script.name;
}

/// The script around one action, as commands have it.
inline QString keystrokeScript(const QString& action) {
    return QStringLiteral("tell application \"System Events\"\n"
                          "    tell process \"Logic Pro\"\n"
                          "        set frontmost to true\n"
                          "        %1\n"
                          "    end tell\n"
                          "end tell")
        .arg(action);
}

enum class ThenPlay : bool { No, Yes };

/// The script that goes to a bar.
inline QString barScript(int bar, ThenPlay thenPlay) {
    const QString script = QStringLiteral("tell application \"Logic Pro\" to activate\n"
                                          "delay 0.3\n"
                                          "tell application \"System Events\"\n"
                                          "    tell process \"Logic Pro\"\n"
                                          "        key code 44\n"
                                          "        delay 0.5\n"
                                          "        keystroke \"%1\"\n"
                                          "        delay 0.1\n"
                                          "        key code 36\n"
                                          "    end tell\n"
                                          "end tell")
                               .arg(bar);
    return thenPlay == ThenPlay::Yes ? script + QStringLiteral("\ndelay 0.2\nkeystroke \" \"") : script;
}

/// Every built-in command, and going to bars of one and of several digits, with playback and without.
inline std::vector<ProgramScript> programScripts() {
    const auto character = [](const char* name, const char* action, const QString& text,
                              KeyModifiers modifiers = {}) {
        return ProgramScript{name, keystrokeScript(QString::fromUtf8(action)), {{text, modifiers}}};
    };
    const auto place = [](const char* name, const char* action, std::uint16_t code,
                          KeyModifiers modifiers = {}) {
        return ProgramScript{name, keystrokeScript(QString::fromUtf8(action)), {{code, modifiers}}};
    };
    const auto command = KeyModifier::Command;
    const auto shift = KeyModifier::Shift;
    const QString c = QStringLiteral("c");
    const QString k = QStringLiteral("k");
    const QString r = QStringLiteral("r");
    const QString s = QStringLiteral("s");
    const QString z = QStringLiteral("z");
    constexpr std::uint16_t slash = 44;
    constexpr std::uint16_t confirm = 36;
    return {
        character("startRecording", R"(keystroke "r")", r),
        place("stopRecording", "key code 49", 49),
        place("play", "key code 49", 49),
        place("stop", "key code 49", 49),
        place("pause", "key code 49", 49),
        place("rewind", "key code 36", 36),
        place("fastForward", "key code 124", 124),
        character("deleteTake", R"(keystroke "z" using {command down})", z, command),
        character("undo", R"(keystroke "z" using {command down})", z, command),
        character("redo", R"(keystroke "z" using {command down, shift down})", z, command | shift),
        character("save", R"(keystroke "s" using {command down})", s, command),
        character("saveAs", R"(keystroke "s" using {command down, shift down})", s, command | shift),
        character("enableLoop", R"(keystroke "c")", c),
        character("disableLoop", R"(keystroke "c")", c),
        character("loopThisSection", R"(keystroke "c")", c),
        place("countIn", "key code 41 using {shift down}", 41, shift),
        place("playback", "key code 49", 49),
        place("stopPlayback", "key code 49", 49),
        character("clickOn", R"(keystroke "k")", k),
        character("clickOff", R"(keystroke "k")", k),
        {"goToBar7", barScript(7, ThenPlay::No), {{slash, {}}, {QStringLiteral("7"), {}}, {confirm, {}}}},
        {"goToBar1234",
         barScript(1234, ThenPlay::No),
         {{slash, {}},
          {QStringLiteral("1"), {}},
          {QStringLiteral("2"), {}},
          {QStringLiteral("3"), {}},
          {QStringLiteral("4"), {}},
          {confirm, {}}}},
        {"playFromBar5",
         barScript(5, ThenPlay::Yes),
         {{slash, {}}, {QStringLiteral("5"), {}}, {confirm, {}}, {QStringLiteral(" "), {}}}},
        {"playFromBar960",
         barScript(960, ThenPlay::Yes),
         {{slash, {}},
          {QStringLiteral("9"), {}},
          {QStringLiteral("6"), {}},
          {QStringLiteral("0"), {}},
          {confirm, {}},
          {QStringLiteral(" "), {}}}},
    };
}

} // namespace brivandel::testing
