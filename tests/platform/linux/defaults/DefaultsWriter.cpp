// defaults_writer FILE KEY COUNT [--traced]: stores the numbers 1 to COUNT under KEY, and prints a line at
// the first. Traced, it stops before the last for the process that started it to go on with it call by call.

#include "platform/DiagnosticLog.h"
#include "platform/linux/defaults/PropertyListDefaultsStore.h"

#include <sys/ptrace.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

class NoLog final : public brivandel::DiagnosticLog {
public:
    void write(const QString& /*message*/) override {}
};

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 4) {
        return EXIT_FAILURE;
    }
    const bool isTraced = argc == 5;
    NoLog log;
    brivandel::PropertyListDefaultsStore store(QString::fromLocal8Bit(argv[1]), log, nullptr,
                                               [](const QString&) {});
    const qlonglong count = std::strtoll(argv[3], nullptr, 10);
    for (qlonglong number = 1; number <= count; ++number) {
        if (isTraced && number == count) {
            ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
            std::raise(SIGSTOP);
        }
        store.set(QString::fromLocal8Bit(argv[2]), number);
        if (number == 1) {
            std::puts("writing");
            std::fflush(stdout);
        }
    }
    return EXIT_SUCCESS;
}
