#include "cli/listen/StatusLine.h"

#include "cli/listen/TerminalText.h"
#include "listening/VoiceController.h"
#include "platform/scripted/ScriptedPlatform.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <array>
#include <sstream>

namespace brivandel {
namespace {

class StatusLineTest : public testing::Test {
protected:
    /// What stands in the line after one drawing.
    QString drawn() {
        out_.str({});
        line_.draw();
        const std::string all = out_.str();
        const std::string eraser = "\r\x1b[K";
        EXPECT_EQ(all.rfind(eraser, 0), 0U);
        return QString::fromStdString(all.substr(eraser.size()));
    }

    int argumentCount_ = 1;
    std::array<char, 5> name_{"test"};
    std::array<char*, 2> arguments_{name_.data(), nullptr};
    QCoreApplication application_{argumentCount_, arguments_.data()};
    int columns_ = 80;
    std::ostringstream out_;
    ScriptedPlatform scripted_ = makeScriptedPlatform([](auto, const auto&) {});
    VoiceController controller_{*scripted_.platform};
    StatusLine line_{controller_, out_, [this] { return columns_; }};
};

TEST_F(StatusLineTest, Drawn_ShowsStateLevelAndStatus) {
    controller_.setAudioLevel(0.5F);
    controller_.setStatusMessage(QStringLiteral("✓ play"));
    EXPECT_EQ(drawn(), QStringLiteral("○ ▮▮▮▮▮▮▮▮▮▮▯▯▯▯▯▯▯▯▯▯  ✓ play"));
    controller_.setIsAwake(true);
    EXPECT_TRUE(drawn().startsWith(u'◉'));
}

TEST_F(StatusLineTest, StatusWiderThanTheTerminal_IsCutBeforeTheLastColumn) {
    controller_.setStatusMessage(QString(500, u'x'));
    for (const int columns : {40, 80, 132, 10}) {
        columns_ = columns;
        const QString line = drawn();
        EXPECT_EQ(columnsOf(line), columns - 1);
        EXPECT_TRUE(line.endsWith(u'…'));
    }
}

TEST_F(StatusLineTest, StatusOfSeveralLines_StaysOnOne) {
    controller_.setStatusMessage(QStringLiteral("Error: one\ntwo"));
    EXPECT_FALSE(drawn().contains(u'\n'));
}

} // namespace
} // namespace brivandel
