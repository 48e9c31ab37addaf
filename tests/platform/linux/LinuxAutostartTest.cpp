#include "platform/Autostart.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brivandel {
namespace {

using testing::HasSubstr;

class LinuxAutostartTest : public testing::Test {
protected:
    LinuxAutostartTest() { qputenv("XDG_CONFIG_HOME", folder_.path().toLocal8Bit()); }

    [[nodiscard]] std::string entry() const {
        QFile file(path_);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }
    void append(const QByteArray& line) const {
        QFile file(path_);
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write(line);
    }

    QTemporaryDir folder_;
    QString path_ = folder_.filePath(QStringLiteral("autostart/brivandel.desktop"));
    QString program_ = QStringLiteral("/usr/bin/brivandel");
};

TEST_F(LinuxAutostartTest, NobodyHasAsked_IsOff) {
    EXPECT_FALSE(autostart().isOn);
    EXPECT_EQ(autostart().entryPath, path_);
}

TEST_F(LinuxAutostartTest, SwitchedOn_IsAnEntryThatStartsTheProgramAndNothingElse) {
    EXPECT_EQ(setAutostart(true, program_), std::nullopt);
    EXPECT_TRUE(autostart().isOn);
    // No --toggle: what starts by itself does not listen by itself.
    EXPECT_THAT(entry(), HasSubstr("\nTryExec=/usr/bin/brivandel\nExec=\"/usr/bin/brivandel\"\n"));
}

TEST_F(LinuxAutostartTest, SwitchedOff_LeavesNothing) {
    EXPECT_EQ(setAutostart(true, program_), std::nullopt);
    EXPECT_EQ(setAutostart(false, program_), std::nullopt);
    EXPECT_FALSE(QFile::exists(path_));
    EXPECT_FALSE(autostart().isOn);
    EXPECT_EQ(setAutostart(false, program_), std::nullopt) << "off already";
}

TEST_F(LinuxAutostartTest, SwitchedOffByTheDesktop_IsOffUntilItIsSwitchedOn) {
    for (const char* line : {"Hidden=true\n", "X-GNOME-Autostart-enabled = false\n"}) {
        EXPECT_EQ(setAutostart(true, program_), std::nullopt);
        append(line);
        EXPECT_FALSE(autostart().isOn) << line;
        EXPECT_EQ(setAutostart(true, program_), std::nullopt);
        EXPECT_TRUE(autostart().isOn) << line;
    }
}

TEST_F(LinuxAutostartTest, PathThatAShellWouldActOn_IsQuoted) {
    EXPECT_EQ(setAutostart(true, QStringLiteral("/home/a b/$x/100%/c\\d/brivandel")), std::nullopt);
    EXPECT_THAT(entry(), HasSubstr(R"(Exec="/home/a b/\\$x/100%%/c\\\\d/brivandel")"));
    EXPECT_THAT(entry(), HasSubstr(R"(TryExec=/home/a b/$x/100%/c\\d/brivandel)"));
}

TEST_F(LinuxAutostartTest, FolderThatCannotBeMade_IsSaid) {
    QFile file(folder_.filePath(QStringLiteral("autostart")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const auto problem = setAutostart(true, program_);
    ASSERT_TRUE(problem);
    EXPECT_TRUE(problem->startsWith(path_ + QStringLiteral(": "))) << qPrintable(*problem);
    EXPECT_FALSE(autostart().isOn);
}

TEST_F(LinuxAutostartTest, ProgramWithoutAPlace_IsRefused) {
    EXPECT_NE(setAutostart(true, QString()), std::nullopt);
    EXPECT_FALSE(QFile::exists(path_));
}

} // namespace
} // namespace brivandel
