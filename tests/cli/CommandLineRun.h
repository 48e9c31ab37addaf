#pragma once

#include "cli/CommandLine.h"
#include "commands/CommandStorage.h"
#include "platform/linux/defaults/PropertyList.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace brivandel {

/// What one call of the headless face came to.
struct CommandLineResult {
    int status = -1;
    std::string out;
    std::string err;
};

/// Runs subcommands as a shell would, for a user with a home folder and settings of the test's own.
class CommandLineTest : public testing::Test {
protected:
    CommandLineTest() {
        qputenv("HOME", home_.path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", home_.filePath(QStringLiteral("config")).toLocal8Bit());
        qputenv("XDG_STATE_HOME", home_.filePath(QStringLiteral("state")).toLocal8Bit());
    }

    static CommandLineResult run(const std::vector<const char*>& arguments, const std::string& input = {}) {
        std::vector<const char*> all = {"brivandel"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        std::istringstream in(input);
        std::ostringstream out;
        std::ostringstream err;
        const int status = runCommandLine(static_cast<int>(all.size()), all.data(), {in, out, err});
        return {status, out.str(), err.str()};
    }

    [[nodiscard]] QString settingsPath() const {
        return home_.filePath(QStringLiteral("config/brivandel/defaults.plist"));
    }

    void storeSettings(const QVariantMap& objects) const {
        PropertyList list;
        for (auto entry = objects.cbegin(); entry != objects.cend(); ++entry) {
            list.set(entry.key(), entry.value());
        }
        static_cast<void>(writeFile(settingsPath(), list.toBinary()));
    }

    [[nodiscard]] std::string writeFile(const QString& path, const QByteArray& bytes) const {
        const QString whole = QDir(home_.path()).filePath(path);
        QDir().mkpath(QFileInfo(whole).absolutePath());
        QFile file(whole);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return whole.toStdString();
    }

private:
    QTemporaryDir home_;
};

} // namespace brivandel
