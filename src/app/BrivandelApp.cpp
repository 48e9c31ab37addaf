#include "app/BrivandelApp.h"

#include "app/AppDelegate.h"
#include "app/SingleInstance.h"
#include "listening/VoiceController.h"
#include "platform/Desktop.h"
#include "platform/Platform.h"
#include "platform/PlatformFactory.h"
#include "widgets/Symbol.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <optional>
#include <ostream>
#include <utility>
#include <variant>

namespace brivandel {

namespace {

constexpr int success = 0;
constexpr int failure = 1;
constexpr int badUsage = 2;

struct Options {
    LaunchRequest request = LaunchRequest::None;
    std::optional<Appearance> appearance;
};

constexpr std::size_t descriptionColumn = 30; // where a help text of the headless face has it

const auto appearanceOption = QStringLiteral("appearance");

struct RequestOption {
    LaunchRequest request;
    const char* description;
};
constexpr std::array requestOptions{
    RequestOption{LaunchRequest::Toggle, "Switch listening on or off"},
    RequestOption{LaunchRequest::Popover, "Show the status, or close it"},
    RequestOption{LaunchRequest::Settings, "Open the settings"},
    RequestOption{LaunchRequest::Commands, "Open the command reference"},
    RequestOption{LaunchRequest::Quit, "End the program"},
};

// What was asked for, or in words what is wrong with it.
std::variant<Options, QString> parse(const QStringList& arguments) {
    QCommandLineParser parser;
    for (const auto& [request, description] : requestOptions) {
        parser.addOption(QCommandLineOption(wordFor(request)));
    }
    parser.addOption(QCommandLineOption(appearanceOption, QString(), QStringLiteral("light or dark")));
    if (!parser.parse(arguments)) {
        return parser.errorText();
    }
    if (!parser.positionalArguments().isEmpty()) {
        return QStringLiteral("'%1' is not understood").arg(parser.positionalArguments().constFirst());
    }
    Options options;
    for (const auto& [request, description] : requestOptions) {
        if (!parser.isSet(wordFor(request))) {
            continue;
        }
        if (options.request != LaunchRequest::None) {
            return QStringLiteral("--%1 and --%2 exclude each other")
                .arg(wordFor(options.request), wordFor(request));
        }
        options.request = request;
    }
    if (parser.isSet(appearanceOption)) {
        const QString value = parser.value(appearanceOption);
        if (value != QStringLiteral("light") && value != QStringLiteral("dark")) {
            return QStringLiteral("--appearance is light or dark, not '%1'").arg(value);
        }
        options.appearance = value == QStringLiteral("dark") ? Appearance::Dark : Appearance::Light;
    }
    return options;
}

} // namespace

bool isAppRequest(int argumentCount, const char* const* arguments) {
    if (argumentCount < 2) {
        return true;
    }
    const auto first = QString::fromLocal8Bit(arguments[1]);
    if (!first.startsWith(QStringLiteral("--"))) {
        return false;
    }
    const QString name = first.mid(2).section(u'=', 0, 0);
    return name == appearanceOption || (name != QStringLiteral("none") && launchRequestFor(name));
}

std::string appOptionsHelp() {
    const auto line = [](const QString& option, const char* description) {
        std::string text = "  --" + option.toStdString();
        text.resize(std::max(descriptionColumn, text.size() + 1), ' ');
        return text + description + '\n';
    };
    std::string help =
        "Without a subcommand it shows its item in the status area. One program runs for one user; a "
        "further\nstart hands its request to it and ends:\n";
    for (const auto& [request, description] : requestOptions) {
        help += line(wordFor(request), description);
    }
    return help +
           line(appearanceOption + QStringLiteral(" light|dark"), "Look so, whatever the desktop says");
}

int runBrivandelApp(int& argumentCount, char** arguments, std::ostream& errors) {
    const auto complain = [&errors](const QString& what) {
        errors << "brivandel: " << what.toStdString() << '\n';
    };
    QStringList words;
    for (int index = 0; index < argumentCount; ++index) {
        words += QString::fromLocal8Bit(arguments[index]);
    }
    const auto parsed = parse(words);
    if (const auto* problem = std::get_if<QString>(&parsed)) {
        complain(*problem);
        return badUsage;
    }
    const auto& options = std::get<Options>(parsed);
    if (const auto problem = desktopProblem()) {
        complain(*problem);
        return failure;
    }

    QApplication application(argumentCount, arguments);
    QApplication::setApplicationName(QStringLiteral("brivandel"));
    QGuiApplication::setDesktopFileName(QStringLiteral("brivandel"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(QIcon(resourceImage(QStringLiteral("logo-square"), 128, 1)));

    SingleInstance instance(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation));
    switch (instance.begin(options.request)) {
    case SingleInstance::Role::First:
        break;
    case SingleInstance::Role::HandedOn:
        return success;
    case SingleInstance::Role::Mute:
        complain(instance.problem());
        return failure;
    }
    if (options.request == LaunchRequest::Quit) {
        complain(QStringLiteral("it is not running"));
        return success;
    }
    if (!instance.problem().isEmpty()) {
        complain(instance.problem());
    }

    const auto desktop = makeDesktop();
    AppDelegate delegate(VoiceController::sharedPlatform(), *desktop, VoiceController::shared(),
                         lastFailurePath(), options.appearance);
    QObject::connect(&delegate, &AppDelegate::quitRequested, &application, &QCoreApplication::quit);
    QObject::connect(&instance, &SingleInstance::requested, &delegate, &AppDelegate::handle);
    delegate.applicationDidFinishLaunching();
    if (options.request != LaunchRequest::None) {
        delegate.handle(options.request);
    }
    return QApplication::exec();
}

} // namespace brivandel
