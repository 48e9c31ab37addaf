#include "app/BrivandelApp.h"
#include "cli/CommandLine.h"

#include <QCoreApplication>

#include <iostream>

int main(int argc, char* argv[]) {
    if (brivandel::isAppRequest(argc, argv)) {
        return brivandel::runBrivandelApp(argc, argv, std::cerr);
    }
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("brivandel"));
    return brivandel::runCommandLine(argc, argv, {std::cin, std::cout, std::cerr},
                                     brivandel::appOptionsHelp());
}
