#include "platform/linux/workstations/KnownWorkstations.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

class KnownWorkstationsTest : public testing::Test {
protected:
    KnownWorkstationsTest() {
        QDir().mkdir(own_);
        QDir().mkdir(shipped_);
    }
    static void write(const QString& path, const QByteArray& text) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    static QByteArray named(const QByteArray& name) {
        return "{\"name\": \"" + name + "\", \"processes\": [\"x\"], \"keys\": {}}";
    }
    [[nodiscard]] KnownWorkstations read() const { return readKnownWorkstations(own_, shipped_); }

    QTemporaryDir folder_;
    QString own_ = folder_.filePath(QStringLiteral("own"));
    QString shipped_ = folder_.filePath(QStringLiteral("shipped"));
};

TEST_F(KnownWorkstationsTest, OwnFileOfTheSameName_Wins) {
    write(shipped_ + QStringLiteral("/a.json"), named("shipped"));
    write(shipped_ + QStringLiteral("/b.json"), named("second"));
    write(own_ + QStringLiteral("/a.json"), named("own"));
    const auto known = read();
    ASSERT_EQ(known.all.size(), 2U);
    EXPECT_EQ(known.all[0].profile.name, QStringLiteral("own"));
    EXPECT_EQ(known.all[0].path, own_ + QStringLiteral("/a.json"));
    EXPECT_EQ(known.all[1].profile.name, QStringLiteral("second"));
    EXPECT_TRUE(known.problems.isEmpty());
}

TEST_F(KnownWorkstationsTest, OwnFileOfAnotherName_GoesBeforeTheShippedOnes) {
    write(shipped_ + QStringLiteral("/a.json"), named("Daw"));
    write(own_ + QStringLiteral("/my-daw.json"), named("Daw"));
    const auto known = read();
    ASSERT_EQ(known.all.size(), 2U);
    EXPECT_EQ(known.all[0].path, own_ + QStringLiteral("/my-daw.json"));
    EXPECT_EQ(known.called(QStringLiteral("daw")), &known.all[0]);
}

TEST_F(KnownWorkstationsTest, OwnFileWithAFault_IsNamedWithItsPlaceAndTheShippedOneUsed) {
    write(shipped_ + QStringLiteral("/a.json"), named("shipped"));
    write(own_ + QStringLiteral("/a.json"), "{\n  \"nam\": \"A\"}");
    const auto known = read();
    ASSERT_EQ(known.all.size(), 1U);
    EXPECT_EQ(known.all[0].profile.name, QStringLiteral("shipped"));
    ASSERT_EQ(known.problems.size(), 1);
    EXPECT_TRUE(
        known.problems[0].startsWith(own_ + QStringLiteral("/a.json:2:3: \"nam\" means nothing here")))
        << qPrintable(known.problems[0]);
    EXPECT_TRUE(known.problems[0].endsWith(QStringLiteral("; the shipped one is used instead")));
}

TEST_F(KnownWorkstationsTest, OwnFileWithAFaultAndNoShippedOne_IsLeftOut) {
    write(own_ + QStringLiteral("/a.json"), "[]");
    const auto known = read();
    EXPECT_TRUE(known.all.empty());
    ASSERT_EQ(known.problems.size(), 1);
    EXPECT_TRUE(
        known.problems[0].endsWith(QStringLiteral("/a.json:1:1: an object {…} belongs here; it is left out")))
        << qPrintable(known.problems[0]);
}

TEST_F(KnownWorkstationsTest, NoFolder_IsNoProblem) {
    const auto known = readKnownWorkstations(own_ + QStringLiteral("/none"), shipped_);
    EXPECT_TRUE(known.all.empty());
    EXPECT_TRUE(known.problems.isEmpty());
}

TEST_F(KnownWorkstationsTest, Shipped_HaveNoFault) {
    const auto known = readKnownWorkstations(own_);
    EXPECT_TRUE(known.problems.isEmpty()) << qPrintable(known.problems.join(u'\n'));
    ASSERT_NE(known.called(QStringLiteral("ardour")), nullptr);
    for (const KnownWorkstation& workstation : known.all) {
        EXPECT_FALSE(workstation.profile.tried.isEmpty()) << qPrintable(workstation.path);
    }
}

} // namespace
} // namespace brivandel
