#include "platform/linux/TargetSetting.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

class TargetSettingTest : public testing::Test {
protected:
    TargetSettingTest() { qunsetenv("BRIVANDEL_TARGET"); }
    ~TargetSettingTest() override { qunsetenv("BRIVANDEL_TARGET"); }
    Q_DISABLE_COPY_MOVE(TargetSettingTest)

    void write(const QByteArray& text) const {
        QFile file(path_);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    [[nodiscard]] TargetSetting setting(const QString& option = {}) const {
        return targetSetting({.target = option}, path_);
    }

    QTemporaryDir folder_;
    QString path_ = folder_.filePath(QStringLiteral("target"));
};

TEST_F(TargetSettingTest, NobodySaysAnything_IsTheProgramOfThatName) {
    EXPECT_EQ(setting().name, TargetName());
    EXPECT_EQ(setting().saidBy, QString());
    EXPECT_EQ(setting().problem, QString());
}

TEST_F(TargetSettingTest, OptionBeatsEnvironmentBeatsFile) {
    write("Ardour\n");
    EXPECT_EQ(setting().name, TargetName{QStringLiteral("Ardour")});
    EXPECT_EQ(setting().saidBy, path_);
    qputenv("BRIVANDEL_TARGET", "Reaper");
    EXPECT_EQ(setting().name, TargetName{QStringLiteral("Reaper")});
    EXPECT_EQ(setting().saidBy, QStringLiteral("BRIVANDEL_TARGET"));
    EXPECT_EQ(setting(QStringLiteral("Bitwig")).name, TargetName{QStringLiteral("Bitwig")});
    EXPECT_EQ(setting(QStringLiteral("Bitwig")).saidBy, QStringLiteral("--target"));
}

TEST_F(TargetSettingTest, OptionAndEnvironmentOfBlanks_SayNothing) {
    write("Ardour");
    qputenv("BRIVANDEL_TARGET", "  ");
    EXPECT_EQ(setting(QStringLiteral(" ")).name, TargetName{QStringLiteral("Ardour")});
}

TEST_F(TargetSettingTest, FileWithComments_ItsFirstOtherLineCounts) {
    write("# my workstation\n\n   \r\n  title: Träume – Ardour \r\nReaper\n");
    EXPECT_EQ(setting().name, (TargetName{QStringLiteral("Träume – Ardour"), TargetName::By::WindowTitle}));
}

TEST_F(TargetSettingTest, FileThatSaysNothing_IsAsNone) {
    for (const QByteArray& text : {QByteArray(), QByteArray("\n"), QByteArray("# Ardour")}) {
        write(text);
        EXPECT_EQ(setting().name, TargetName());
        EXPECT_EQ(setting().saidBy, QString());
    }
}

TEST_F(TargetSettingTest, FileThatCannotBeRead_IsSaid) {
    ASSERT_TRUE(QDir().mkdir(path_)); // which nobody can read as a file, not even a superuser
    EXPECT_EQ(setting().name, TargetName());
    EXPECT_TRUE(setting().problem.startsWith(path_ + QStringLiteral(": "))) << qPrintable(setting().problem);
}

TEST_F(TargetSettingTest, FilePath_IsBesideTheSettings) {
    qputenv("XDG_CONFIG_HOME", folder_.path().toLocal8Bit());
    EXPECT_EQ(targetFilePath(), folder_.filePath(QStringLiteral("brivandel/target")));
}

} // namespace
} // namespace brivandel
