#include "listening/Settings.h"

#include "commands/CommandStorage.h"
#include "platform/DefaultsStore.h"

#include <QByteArray>
#include <QRegularExpression>
#include <QVariant>

namespace brivandel {

namespace {

namespace key {
const QString wakeWord = QStringLiteral("wakeWord");
const QString useWakeWord = QStringLiteral("useWakeWord");
const QString audioFeedback = QStringLiteral("audioFeedback");
const QString audioDevice = QStringLiteral("audioDevice");
const QString idleTimeoutMinutes = QStringLiteral("idleTimeoutMinutes");
const QString autoDisableOnIdle = QStringLiteral("autoDisableOnIdle");
const QString idleReminderEnabled = QStringLiteral("idleReminderEnabled");
const QString customCommands = QStringLiteral("customCommands");
const QString builtInTriggerOverrides = QStringLiteral("builtInTriggerOverrides");
} // namespace key

constexpr std::int64_t defaultIdleTimeoutMinutes = 30;

template <typename Value>
std::optional<Value> typed(const QVariant& object) {
    if (object.typeId() != qMetaTypeId<Value>()) {
        return std::nullopt;
    }
    return object.value<Value>();
}

// A plain text, as the platform reads one: a number counts as what it is written as, a Boolean as 1 or 0.
std::optional<QString> plainText(const QVariant& object) {
    constexpr int significantDigits = 16;
    switch (object.typeId()) {
    case QMetaType::QString:
        return object.toString();
    case QMetaType::Bool:
        return object.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    case QMetaType::LongLong:
        return QString::number(object.toLongLong());
    case QMetaType::Double:
        return QString::number(object.toDouble(), 'g', significantDigits);
    default:
        return std::nullopt;
    }
}

// A plain Boolean, as the platform reads one: a number other than 0 is true, and so is a text that begins
// like "yes", "true" or a number other than 0. Anything else is false, and yet it is not absent.
std::optional<bool> plainBoolean(const QVariant& object) {
    if (!object.isValid()) {
        return std::nullopt;
    }
    switch (object.typeId()) {
    case QMetaType::Bool:
        return object.toBool();
    case QMetaType::LongLong:
        return object.toLongLong() != 0;
    case QMetaType::Double:
        return object.toDouble() != 0;
    case QMetaType::QString: {
        static const QRegularExpression truth(QStringLiteral("^\\s*[+-]?0*[YyTt1-9]"));
        return object.toString().contains(truth);
    }
    default:
        return false;
    }
}

} // namespace

Settings::Settings(DefaultsStore& store) : store_(store) {}

QString Settings::wakeWord() const {
    return plainText(store_.object(key::wakeWord)).value_or(QStringLiteral("hey logic"));
}

void Settings::setWakeWord(const QString& wakeWord) {
    store_.set(key::wakeWord, wakeWord);
}

std::optional<bool> Settings::useWakeWord() const {
    return plainBoolean(store_.object(key::useWakeWord));
}

void Settings::setUseWakeWord(bool use) {
    store_.set(key::useWakeWord, use);
}

std::optional<bool> Settings::audioFeedback() const {
    return plainBoolean(store_.object(key::audioFeedback));
}

void Settings::setAudioFeedback(bool enabled) {
    store_.set(key::audioFeedback, enabled);
}

std::optional<QString> Settings::audioDevice() const {
    return plainText(store_.object(key::audioDevice));
}

void Settings::setAudioDevice(const std::optional<QString>& uid) {
    if (uid) {
        store_.set(key::audioDevice, *uid);
    } else {
        store_.remove(key::audioDevice);
    }
}

std::int64_t Settings::idleTimeoutMinutes() const {
    return typed<qlonglong>(store_.object(key::idleTimeoutMinutes)).value_or(defaultIdleTimeoutMinutes);
}

void Settings::setIdleTimeoutMinutes(std::int64_t minutes) {
    store_.set(key::idleTimeoutMinutes, qlonglong{minutes});
}

bool Settings::autoDisableOnIdle() const {
    return typed<bool>(store_.object(key::autoDisableOnIdle)).value_or(true);
}

void Settings::setAutoDisableOnIdle(bool disable) {
    store_.set(key::autoDisableOnIdle, disable);
}

bool Settings::idleReminderEnabled() const {
    return typed<bool>(store_.object(key::idleReminderEnabled)).value_or(true);
}

void Settings::setIdleReminderEnabled(bool enabled) {
    store_.set(key::idleReminderEnabled, enabled);
}

std::optional<CustomCommandList> Settings::customCommands() const {
    const auto data = typed<QByteArray>(store_.object(key::customCommands));
    return data ? decodeCustomCommands(*data) : std::nullopt;
}

void Settings::setCustomCommands(const CustomCommandList& commands) {
    store_.set(key::customCommands, encodeCustomCommands(commands));
}

std::optional<TriggerOverrides> Settings::triggerOverrides() const {
    const auto data = typed<QByteArray>(store_.object(key::builtInTriggerOverrides));
    return data ? decodeTriggerOverrides(*data) : std::nullopt;
}

void Settings::setTriggerOverrides(const TriggerOverrides& overrides) {
    store_.set(key::builtInTriggerOverrides, encodeTriggerOverrides(overrides));
}

} // namespace brivandel
