// defaults_writer FILE KEY COUNT: stores the numbers 1 to COUNT under KEY, and prints a line at the first.

#include "platform/DiagnosticLog.h"
#include "platform/linux/defaults/PropertyListDefaultsStore.h"

#include <cstdio>
#include <cstdlib>

namespace {

class NoLog final : public brivandel::DiagnosticLog {
public:
    void write(const QString& /*message*/) override {}
};

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 4) {
        return EXIT_FAILURE;
    }
    NoLog log;
    brivandel::PropertyListDefaultsStore store(QString::fromLocal8Bit(argv[1]), log, nullptr,
                                               [](const QString&) {});
    const qlonglong count = std::strtoll(argv[3], nullptr, 10);
    for (qlonglong number = 1; number <= count; ++number) {
        store.set(QString::fromLocal8Bit(argv[2]), number);
        if (number == 1) {
            std::puts("writing");
            std::fflush(stdout);
        }
    }
    return EXIT_SUCCESS;
}
