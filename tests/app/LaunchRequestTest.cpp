#include "app/LaunchRequest.h"

#include "app/BrivandelApp.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

bool isForTheApp(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "brivandel");
    return isAppRequest(static_cast<int>(arguments.size()), arguments.data());
}

TEST(LaunchRequest, EachWord_MeansWhatItWasMadeFrom) {
    for (const auto request : {LaunchRequest::None, LaunchRequest::Toggle, LaunchRequest::Popover,
                               LaunchRequest::Settings, LaunchRequest::Commands, LaunchRequest::Quit}) {
        EXPECT_EQ(launchRequestFor(wordFor(request)), request);
    }
    EXPECT_EQ(launchRequestFor(QStringLiteral("dance")), std::nullopt);
    EXPECT_EQ(launchRequestFor(QString()), std::nullopt);
}

TEST(AppRequest, NoArgumentsOrARequest_StartTheAppAndSubcommandsDoNot) {
    EXPECT_TRUE(isForTheApp({}));
    EXPECT_TRUE(isForTheApp({"--toggle"}));
    EXPECT_TRUE(isForTheApp({"--appearance=dark"}));
    EXPECT_FALSE(isForTheApp({"listen"}));
    EXPECT_FALSE(isForTheApp({"--help"}));
    EXPECT_FALSE(isForTheApp({"--version"}));
    EXPECT_FALSE(isForTheApp({"--none"}));
}

} // namespace
} // namespace brivandel
