#include "platform/linux/TargetChoice.h"

#include "platform/linux/applescript/FakeKeySender.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <optional>

namespace brivandel {
namespace {

/// The user's folder of settings, and a desktop without a display.
class TargetChoiceTest : public ::testing::Test {
protected:
    TargetChoiceTest() {
        qunsetenv("BRIVANDEL_TARGET");
        qputenv("XDG_CONFIG_HOME", folder_.path().toLocal8Bit());
        QDir(folder_.path()).mkpath(QStringLiteral("brivandel/workstations"));
        desktop_.running.clear();
    }
    ~TargetChoiceTest() override { qunsetenv("XDG_CONFIG_HOME"); }
    Q_DISABLE_COPY_MOVE(TargetChoiceTest)

    [[nodiscard]] QString settingPath() const { return folder_.filePath(QStringLiteral("brivandel/target")); }
    [[nodiscard]] QString profilePath() const {
        return folder_.filePath(QStringLiteral("brivandel/workstations/alpha.json"));
    }
    static void write(const QString& path, const QByteArray& text) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    void writeProfile() const {
        write(profilePath(), R"({"name": "Alpha", "processes": ["alpha"], "keys": {}})");
    }
    std::unique_ptr<const TargetChoice> read() {
        return readTargetChoice({}, std::make_unique<testing::FakeKeySender>(desktop_));
    }
    /// As a script would find it.
    static StandIn standIn(const TargetChoice& choice, const QString& running) {
        auto chosen = choice.standIn()->choose([&](const TargetName& name) {
            return name.text == running ? std::optional(KeyTarget{}) : std::nullopt;
        });
        if (const auto* const problem = std::get_if<QString>(&chosen)) {
            ADD_FAILURE() << qPrintable(*problem);
            return {};
        }
        return std::get<StandIn>(std::move(chosen));
    }

    QTemporaryDir folder_;
    testing::FakeDesktop desktop_;
};

TEST_F(TargetChoiceTest, FilesChangeAfterTheyWereRead_PersonAndScriptsAreToldTheSame) {
    writeProfile();
    write(settingPath(), "alpha");
    desktop_.running = {QStringLiteral("alpha"), QStringLiteral("beta")};
    const auto choice = read();
    write(settingPath(), "beta");
    QFile::remove(profilePath());

    EXPECT_EQ(choice->inWords(), QStringLiteral("Commands go to alpha."));
    EXPECT_EQ(standIn(*choice, QStringLiteral("alpha")).target, TargetName{QStringLiteral("alpha")});
    EXPECT_NE(standIn(*choice, QStringLiteral("alpha")).keys, nullptr);
    EXPECT_EQ(read()->inWords(), QStringLiteral("Commands go to beta."));
}

TEST_F(TargetChoiceTest, WorkstationStartsAndEndsLater_IsAskedAnew) {
    writeProfile();
    const auto choice = read();
    EXPECT_EQ(choice->inWords(), QStringLiteral("Commands go to Logic Pro, which is not running."));
    desktop_.running = {QStringLiteral("alpha")};
    EXPECT_EQ(choice->inWords(), QStringLiteral("Commands go to Alpha."));
    EXPECT_EQ(choice->look().target(), TargetName{QStringLiteral("alpha")});
    desktop_.running.clear();
    EXPECT_EQ(choice->inWords(), QStringLiteral("Commands go to Logic Pro, which is not running."));
}

TEST_F(TargetChoiceTest, SettingThatCannotBeRead_IsSaidAndNobodyIsChosen) {
    ASSERT_TRUE(QDir().mkdir(settingPath())); // which nobody can read as a file, not even a superuser
    desktop_.running = {QStringLiteral("Logic Pro")};
    const auto choice = read();
    EXPECT_TRUE(choice->inWords().startsWith(QStringLiteral("The target's name cannot be read: ")))
        << qPrintable(choice->inWords());
}

TEST_F(TargetChoiceTest, TwoRunAndNobodyIsNamed_SaysTheFileToNameOneIn) {
    writeProfile();
    desktop_.running = {QStringLiteral("alpha"), QStringLiteral("Logic Pro")};
    const QString words = read()->inWords();
    EXPECT_TRUE(words.contains(QStringLiteral("name one in %1,").arg(settingPath()))) << qPrintable(words);
    EXPECT_FALSE(words.contains(QStringLiteral("--target"))) << qPrintable(words);
}

TEST_F(TargetChoiceTest, NoDisplay_IsSaid) {
    desktop_.display = KeyFailure{KeyFailure::Kind::NoDisplay, QStringLiteral("There is no X display.")};
    EXPECT_EQ(read()->inWords(), QStringLiteral("There is no X display."));
}

TEST_F(TargetChoiceTest, ProfileWithAFault_IsAProblem) {
    write(profilePath(), "[]");
    ASSERT_EQ(read()->known().problems.size(), 1);
    EXPECT_TRUE(read()->known().problems[0].startsWith(profilePath()));
}

} // namespace
} // namespace brivandel
