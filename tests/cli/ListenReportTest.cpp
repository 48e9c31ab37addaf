#include "cli/listen/ListenReport.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>

namespace brivandel {
namespace {

const UtteranceVerdict passedOver{.text = QStringLiteral("hey logic rewind"),
                                  .isAccepted = false,
                                  .score = -9.4,
                                  .reason = QStringLiteral("the command fits badly")};
const UtteranceVerdict accepted{.text = QStringLiteral("hey logic play"),
                                .isAccepted = true,
                                .score = 0,
                                .reason = QStringLiteral("both decoders heard it")};

class ListenReportTest : public testing::Test {
protected:
    [[nodiscard]] std::string printed(bool json, const UtteranceVerdict& verdict) {
        ListenReport report("take.wav", json, terminal_);
        report.judged(3.2636, verdict);
        EXPECT_EQ(err_.str(), "");
        return out_.str();
    }

    std::istringstream in_;
    std::ostringstream out_;
    std::ostringstream err_;
    Terminal terminal_{in_, out_, err_};
};

TEST_F(ListenReportTest, VerdictAsJson_SaysWhatWasNearestAndWhyNot) {
    EXPECT_EQ(nlohmann::json::parse(printed(true, passedOver)),
              (nlohmann::json{{"file", "take.wav"},
                              {"t", 3.264},
                              {"event", "judged"},
                              {"nearest", "hey logic rewind"},
                              {"accepted", false},
                              {"score", -9.4},
                              {"why", "the command fits badly"}}));
}

TEST_F(ListenReportTest, AcceptedVerdictAsJson_IsPrintedToo) {
    const auto line = nlohmann::json::parse(printed(true, accepted));
    EXPECT_EQ(line["accepted"], true);
    EXPECT_EQ(line["why"], "both decoders heard it");
}

TEST_F(ListenReportTest, CommandPassedOver_IsALineOfTextWithItsReason) {
    const std::string line = printed(false, passedOver);
    EXPECT_NE(line.find("passed"), std::string::npos);
    EXPECT_NE(line.find("hey logic rewind"), std::string::npos);
    EXPECT_NE(line.find("the command fits badly"), std::string::npos);
    EXPECT_EQ(line.back(), '\n');
}

TEST_F(ListenReportTest, AcceptedVerdictAsText_IsNotPrintedSinceTheCommandIs) {
    EXPECT_EQ(printed(false, accepted), "");
}

} // namespace
} // namespace brivandel
