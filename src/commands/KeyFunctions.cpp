#include "commands/KeyFunctions.h"

#include "commands/KeystrokeScript.h"

#include <QStringList>

#include <limits>
#include <unordered_map>

namespace brivandel {

namespace {

// Keys that type nothing, or nothing that could be shown.
const std::unordered_map<std::int64_t, QString>& namedKeys() {
    static const std::unordered_map<std::int64_t, QString> names = {
        {36, QStringLiteral("↩")},    {48, QStringLiteral("⇥")},    {49, QStringLiteral("Space")},
        {51, QStringLiteral("⌫")},    {52, QStringLiteral("↩")},    {53, QStringLiteral("⎋")},
        {71, QStringLiteral("⌧")},    {76, QStringLiteral("↩")},    {96, QStringLiteral("F5")},
        {97, QStringLiteral("F6")},   {98, QStringLiteral("F7")},   {99, QStringLiteral("F3")},
        {100, QStringLiteral("F8")},  {101, QStringLiteral("F9")},  {103, QStringLiteral("F11")},
        {105, QStringLiteral("F13")}, {109, QStringLiteral("F10")}, {111, QStringLiteral("F12")},
        {113, QStringLiteral("F14")}, {115, QStringLiteral("↖")},   {116, QStringLiteral("⇞")},
        {117, QStringLiteral("⌦")},   {118, QStringLiteral("F4")},  {119, QStringLiteral("↘")},
        {120, QStringLiteral("F2")},  {121, QStringLiteral("⇟")},   {122, QStringLiteral("F1")},
        {123, QStringLiteral("←")},   {124, QStringLiteral("→")},   {125, QStringLiteral("↓")},
        {126, QStringLiteral("↑")},
    };
    return names;
}

QString keyNameForCode(std::int64_t keyCode, const KeyboardLayout& layout) {
    if (keyCode < 0 || keyCode > std::numeric_limits<std::uint16_t>::max()) {
        qFatal("key code %lld is none of an event's", static_cast<long long>(keyCode));
    }
    if (const auto named = namedKeys().find(keyCode); named != namedKeys().end()) {
        return named->second;
    }
    if (const auto typed = layout.characterForKeyCode(static_cast<std::uint16_t>(keyCode));
        typed && !typed->isEmpty()) {
        return typed->toUpper();
    }
    return QStringLiteral("Key") + QString::number(keyCode);
}

} // namespace

QString keyDisplayString(std::int64_t keyCode, std::int64_t modifierFlagsRaw, const KeyboardLayout& layout) {
    QString text;
    if ((modifierFlagsRaw & controlModifier) != 0) {
        text += u'⌃';
    }
    if ((modifierFlagsRaw & optionModifier) != 0) {
        text += u'⌥';
    }
    if ((modifierFlagsRaw & shiftModifier) != 0) {
        text += u'⇧';
    }
    if ((modifierFlagsRaw & commandModifier) != 0) {
        text += u'⌘';
    }
    return text + keyNameForCode(keyCode, layout);
}

QString appleScriptForKey(std::int64_t keyCode, std::int64_t modifierFlagsRaw) {
    // Not the order of the glyphs: scripts name the modifiers as a person would write them.
    QStringList modifiers;
    if ((modifierFlagsRaw & commandModifier) != 0) {
        modifiers += QStringLiteral("command down");
    }
    if ((modifierFlagsRaw & shiftModifier) != 0) {
        modifiers += QStringLiteral("shift down");
    }
    if ((modifierFlagsRaw & optionModifier) != 0) {
        modifiers += QStringLiteral("option down");
    }
    if ((modifierFlagsRaw & controlModifier) != 0) {
        modifiers += QStringLiteral("control down");
    }

    return keystrokeScript(keyCodeAction(keyCode, modifiers));
}

CapturedKey captureKey(std::int64_t keyCode, std::int64_t modifierFlagsRaw, const KeyboardLayout& layout) {
    return {keyCode, modifierFlagsRaw, keyDisplayString(keyCode, modifierFlagsRaw, layout),
            appleScriptForKey(keyCode, modifierFlagsRaw)};
}

} // namespace brivandel
