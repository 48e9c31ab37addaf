#include "demo/ReceivedKey.h"

#include "platform/linux/keys/KeyCodes.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>

#include <xkbcommon/xkbcommon.h>

#include <array>

namespace brivandel {

namespace {

struct ModifierNames {
    KeyModifier modifier;
    Qt::KeyboardModifier inQt;
    const char16_t* word;
    const char16_t* glyph;
};

/// In the order of labels.
constexpr std::array modifierNames{
    ModifierNames{KeyModifier::Control, Qt::MetaModifier, u"control", u"⌃"},
    ModifierNames{KeyModifier::Option, Qt::AltModifier, u"option", u"⌥"},
    ModifierNames{KeyModifier::Shift, Qt::ShiftModifier, u"shift", u"⇧"},
    ModifierNames{KeyModifier::Command, Qt::ControlModifier, u"command", u"⌘"},
};

QString symbolName(quint32 symbol) {
    std::array<char, 64> name{};
    const int length = xkb_keysym_get_name(symbol, name.data(), name.size());
    return length > 0 ? QString::fromLatin1(name.data(), length) : QString();
}

QString keyLabel(const ReceivedKey& key) {
    switch (key.virtualKeyCode.value_or(UINT16_MAX)) {
    case 36:
    case 76:
        return QStringLiteral("↩");
    case 48:
        return QStringLiteral("⇥");
    case 49:
        return QStringLiteral("Space");
    case 51:
        return QStringLiteral("⌫");
    case 53:
        return QStringLiteral("⎋");
    case 123:
        return QStringLiteral("←");
    case 124:
        return QStringLiteral("→");
    case 125:
        return QStringLiteral("↓");
    case 126:
        return QStringLiteral("↑");
    default:
        break;
    }
    const bool isPrintable = !key.text.isEmpty() && key.text.front().isPrint();
    const QString name = isPrintable ? key.text : key.symbol;
    return name.size() <= 2 ? name.toUpper() : name;
}

} // namespace

ReceivedKey ReceivedKey::from(const QKeyEvent& event, std::chrono::steady_clock::time_point now) {
    ReceivedKey key;
    key.evdevCode = static_cast<std::uint16_t>(event.nativeScanCode() - xKeyCodeOffset);
    key.virtualKeyCode = virtualKeyCodeForEvdevCode(key.evdevCode);
    key.symbol = symbolName(event.nativeVirtualKey());
    key.text = event.text();
    key.time = now;
    for (const ModifierNames& names : modifierNames) {
        key.modifiers.setFlag(names.modifier, event.modifiers().testFlag(names.inQt));
    }
    return key;
}

QByteArray ReceivedKey::toJsonLine() const {
    QJsonArray modifierWords;
    for (const ModifierNames& names : modifierNames) {
        if (modifiers.testFlag(names.modifier)) {
            modifierWords += QString::fromUtf16(names.word);
        }
    }
    const QJsonObject object{
        {QStringLiteral("event"), QStringLiteral("key")},
        {QStringLiteral("keyCode"), virtualKeyCode ? QJsonValue(*virtualKeyCode) : QJsonValue()},
        {QStringLiteral("evdev"), evdevCode},
        {QStringLiteral("keysym"), symbol},
        {QStringLiteral("text"), text},
        {QStringLiteral("modifiers"), modifierWords},
        {QStringLiteral("t"), std::chrono::duration<double>(time.time_since_epoch()).count()},
    };
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

QString ReceivedKey::label() const {
    QString glyphs;
    for (const ModifierNames& names : modifierNames) {
        if (modifiers.testFlag(names.modifier)) {
            glyphs += QString::fromUtf16(names.glyph);
        }
    }
    return glyphs + keyLabel(*this);
}

bool ReceivedKey::isModifier() const {
    const std::uint16_t code = virtualKeyCode.value_or(0);
    return code >= 54 && code <= 62;
}

} // namespace brivandel
