// A look at the settings window in one state, for whoever changes how it looks:
//   settings_gallery STATE [dark]
// Runs over a scripted platform; nothing is stored.

#include "commands/KeyFunctions.h"
#include "listening/LivePhraseAdvice.h"
#include "listening/VoiceController.h"
#include "platform/scripted/ScriptedPlatform.h"
#include "settings/SettingsView.h"
#include "widgets/Theme.h"

#include <QAbstractButton>
#include <QApplication>

namespace {

using namespace brivandel;

CustomCommandList commands(const KeyboardLayout& layout, int count) {
    CustomCommandList list;
    for (int index = 0; index < count; ++index) {
        CustomCommand command;
        command.id = QUuid::createUuid();
        command.name = QStringLiteral("Toggle Mixer %1").arg(index + 1);
        for (int phrase = 0; phrase <= index % 10; ++phrase) {
            command.triggers += QStringLiteral("open mixer %1").arg(phrase + 1);
        }
        command.capturedKey = captureKey(index % 40, (index * 0x20000) & 0x1e0000, layout);
        command.isEnabled = index % 3 != 1;
        list += command;
    }
    if (count > 2) {
        list[1].name = QStringLiteral("<b>Bold</b> & שלום 👩‍🎤 ").repeated(20);
        list[1].triggers = {QStringLiteral("e\u0301\u0302\u0303 line\nbreak 👩‍🎤"),
                            QString(10000, u'x')};
    }
    return list;
}

} // namespace

int main(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    const QStringList words = QApplication::arguments();
    const QString state = words.value(1, QStringLiteral("general"));
    applyTheme(application, words.contains(QStringLiteral("dark")) ? Appearance::Dark : Appearance::Light);

    auto scripted = makeScriptedPlatform([](auto, auto) {});
    scripted.audioDevices.setDevices({{{QStringLiteral("a"), QStringLiteral("Built-in Microphone")}, 1},
                                      {{QStringLiteral("b"), QStringLiteral("Scarlett 2i2 USB")}, 2}});
    VoiceController controller(*scripted.platform);
    const KeyboardLayout& layout = *scripted.platform->keyboardLayout;
    if (state != QStringLiteral("empty")) {
        controller.setCustomCommands(commands(layout, state == QStringLiteral("many") ? 500 : 7));
    }
    LivePhraseAdvice advice(controller, {*scripted.platform->mainQueue, *scripted.platform->workQueue,
                                         scripted.platform->pronunciations});
    SettingsView view(controller, layout, advice);
    view.setWindowTitle(QStringLiteral("Brivandel Settings"));
    view.show();

    if (state == QStringLiteral("longWakeWord")) {
        controller.setWakeWord(QStringLiteral("<i>hey</i>logic").repeated(700));
    } else if (state == QStringLiteral("audio")) {
        view.setSelectedTab(SettingsView::Audio);
    } else if (state == QStringLiteral("about")) {
        view.setSelectedTab(SettingsView::About);
    } else if (state == QStringLiteral("builtIn")) {
        controller.setBuiltInTriggerOverrides(
            {{rawValue(VoiceCommand::stop),
              {QStringLiteral("halt"), QStringLiteral("stop it right now please")}},
             {rawValue(VoiceCommand::pause), {QStringLiteral("hold")}}});
        view.openSettingsCommandsTab();
    } else if (state == QStringLiteral("triggers")) {
        view.editTriggers(VoiceCommand::fastForward);
    } else if (state == QStringLiteral("custom") || state == QStringLiteral("empty") ||
               state == QStringLiteral("many")) {
        view.editCustomCommand({});
    } else if (state == QStringLiteral("editor")) {
        view.editCustomCommand(controller.customCommands().at(6).id);
    } else if (state == QStringLiteral("tooMuch")) {
        view.editCustomCommand(controller.customCommands().at(1).id);
    } else if (state == QStringLiteral("newCommand")) {
        view.editCustomCommand({});
        view.findChild<QAbstractButton*>(QStringLiteral("addCommand"))->click();
    } else if (state == QStringLiteral("capturing")) {
        view.editCustomCommand(controller.customCommands().at(0).id);
        view.findChild<QAbstractButton*>(QStringLiteral("pill"))->click();
    } else if (state == QStringLiteral("alert")) {
        view.editCustomCommand({});
        view.findChild<QAbstractButton*>(QStringLiteral("addCommand"))->click();
        view.findChild<QAbstractButton*>(QStringLiteral("save"))->click();
    }
    return QApplication::exec();
}
