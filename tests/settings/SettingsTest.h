#pragma once

#include "commands/CommandStorage.h"
#include "commands/KeyFunctions.h"
#include "listening/LivePhraseAdvice.h"
#include "listening/VoiceController.h"
#include "platform/linux/defaults/PropertyListDefaultsStore.h"
#include "platform/scripted/ScriptedPlatform.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>

namespace brivandel::testing {

/// Lets posted events arrive, and what they post, and deletes what was to be deleted later.
inline void turnOfTheLoop() {
    for (int turn = 0; turn < 3; ++turn) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

/// How a test says what was pressed; the scripted keyboard's scan codes are key codes from 1.
struct Key {
    std::uint16_t keyCode = 0;
    Qt::Key key = Qt::Key_unknown;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    bool repeats = false;
};

/// Who has the keyboard.
inline QWidget* keyboardHolder() {
    QWidget* grabber = QWidget::keyboardGrabber();
    return grabber != nullptr ? grabber : QApplication::focusWidget();
}

/// Sends the key as the system does; true when it was offered as a shortcut to nobody.
inline bool press(const Key& key) {
    const auto make = [&key](QEvent::Type type) {
        return QKeyEvent(type, key.key, key.modifiers, key.keyCode + 1U, 0, 0, QString(), key.repeats);
    };
    QKeyEvent override = make(QEvent::ShortcutOverride);
    override.ignore();
    QApplication::sendEvent(keyboardHolder(), &override);
    QKeyEvent down = make(QEvent::KeyPress);
    QApplication::sendEvent(keyboardHolder(), &down);
    return override.isAccepted();
}

inline void release(const Key& key) {
    QKeyEvent up(QEvent::KeyRelease, key.key, key.modifiers, key.keyCode + 1U, 0, 0, QString(), key.repeats);
    QApplication::sendEvent(keyboardHolder(), &up);
}

/// A real controller over a platform in virtual time and a real settings file.
class SettingsTest : public ::testing::Test {
protected:
    SettingsTest() { startProgram(); }

    /// As after a restart; change may put other services into the platform first.
    void startProgram(const std::function<void(Platform&)>& change = {}) {
        advice_.reset();
        controller_.reset();
        scripted_.emplace(makeScriptedPlatform([](auto, auto) {}));
        scripted_->platform->defaults = std::make_unique<PropertyListDefaultsStore>(
            path(), *scripted_->platform->log, nullptr, [](const QString&) {});
        if (change) {
            change(*scripted_->platform);
        }
        controller_ = std::make_unique<VoiceController>(*scripted_->platform);
        Platform& platform = *scripted_->platform;
        advice_ = std::make_unique<LivePhraseAdvice>(
            *controller_,
            LivePhraseAdvice::Services{*platform.mainQueue, *platform.workQueue, platform.pronunciations});
    }

    [[nodiscard]] VoiceController& controller() { return *controller_; }
    [[nodiscard]] LivePhraseAdvice& advice() { return *advice_; }
    [[nodiscard]] ScriptedPlatform& scripted() { return *scripted_; }
    [[nodiscard]] const KeyboardLayout& layout() { return *scripted_->platform->keyboardLayout; }
    [[nodiscard]] QString path() const { return folder_.filePath(QStringLiteral("settings.plist")); }

    /// What is in the file under the key.
    [[nodiscard]] QVariant stored(const char* key) const {
        QFile file(path());
        if (!file.open(QIODevice::ReadOnly)) {
            return {};
        }
        auto parsed = PropertyList::parse(file.readAll());
        const auto* list = std::get_if<PropertyList>(&parsed);
        return list == nullptr ? QVariant() : list->object(QString::fromLatin1(key));
    }
    [[nodiscard]] std::optional<CustomCommandList> storedCommands() const {
        return decodeCustomCommands(stored("customCommands").toByteArray());
    }

    [[nodiscard]] CustomCommand makeCommand(const QString& name, const QStringList& triggers,
                                            std::int64_t keyCode = 1) {
        return {.id = QUuid::createUuid(),
                .name = name,
                .triggers = triggers,
                .capturedKey = captureKey(keyCode, commandModifier, layout()),
                .isEnabled = true};
    }

    template <typename Widget>
    static Widget& find(const QWidget& view, const char* name) {
        auto* found = view.findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    static void open(QWidget& view) {
        view.show();
        view.activateWindow();
        turnOfTheLoop();
    }
    static void click(QWidget& widget) {
        QTest::mouseClick(&widget, Qt::LeftButton);
        turnOfTheLoop();
    }

private:
    QTemporaryDir folder_;
    std::optional<ScriptedPlatform> scripted_;
    std::unique_ptr<VoiceController> controller_;
    std::unique_ptr<LivePhraseAdvice> advice_;
};

} // namespace brivandel::testing
