#include "Control.h"
#include "cli/replay/ReplaySession.h"

#include <QCoreApplication>
#include <QStringList>

#include <fstream>
#include <iostream>

namespace {

// What happens on this system alone: {"do": "engineStops"}, and {"do": "inputsChange"}. False for every other
// step.
bool playedHere(brivandel::ScenarioStep& step) {
    if (step.name() == "engineStops") {
        standin::changeConfiguration(standin::Engine::Stops);
    } else if (step.name() == "inputsChange") {
        standin::changeInputs(standin::Inputs::List);
    } else {
        return false;
    }
    step.expectNothingElse();
    return true;
}

} // namespace

// mac-replay [--only EVENT,...] SCENARIO...: what "brivandel replay" prints of each, with the macOS adapters
// below.
int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    QStringList only;
    if (arguments.value(0) == QStringLiteral("--only")) {
        only = arguments.value(1).split(u',');
        arguments = arguments.mid(2);
    }
    for (const QString& path : arguments) {
        brivandel::ReplaySession session(
            [&only](const nlohmann::ordered_json& effect) {
                const auto& event = effect.at("event").get_ref<const std::string&>();
                if (only.isEmpty() || only.contains(QString::fromStdString(event))) {
                    std::cout << effect.dump() << '\n';
                }
            },
            {});
        std::ifstream scenario(path.toStdString());
        for (std::string line; std::getline(scenario, line);) {
            if (!line.empty() && line.front() != '#') {
                brivandel::ScenarioStep step(line);
                if (playedHere(step)) {
                    step = brivandel::ScenarioStep(R"({"do": "wait", "seconds": 0})"); // what is due now
                }
                session.play(step);
            }
        }
    }
    return 0;
}
