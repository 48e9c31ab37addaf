#include "AdapterTest.h"
#include "platform/macos/MacServices.h"

#include <chrono>
#include <future>
#include <utility>

namespace brivandel {

namespace {

class ScriptHostTest : public AdapterTest {
protected:
    std::unique_ptr<ScriptHost> host = makeMacScriptHost();
};

TEST_F(ScriptHostTest, Script_IsRunAsItIs) {
    const QString source = QStringLiteral("tell application \"Logic Pro\" to activate\ndelay 0.3 — é");
    EXPECT_FALSE(host->run(source));
    EXPECT_EQ(calls(), QStringList(QStringLiteral("script ") + source));
}

TEST_F(ScriptHostTest, Error_IsTheWholeDictionary) {
    world().scriptError = {{QStringLiteral("NSAppleScriptErrorMessage"), QStringLiteral("Not allowed.")},
                           {QStringLiteral("NSAppleScriptErrorBriefMessage"), QStringLiteral("Not.")},
                           {QStringLiteral("NSAppleScriptErrorNumber"), -1743},
                           {QStringLiteral("NSAppleScriptErrorAppName"), QStringLiteral("System Events")},
                           {QStringLiteral("NSAppleScriptErrorRange"), QVariantList{12, 7}}};
    const auto error = host->run(QStringLiteral("x"));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->size(), 5);
    EXPECT_EQ(error->value(QStringView(ScriptErrorKey::message).toString()), QStringLiteral("Not allowed."));
    EXPECT_EQ(error->value(QStringView(ScriptErrorKey::briefMessage).toString()), QStringLiteral("Not."));
    EXPECT_EQ(error->value(QStringView(ScriptErrorKey::number).toString()), QVariant(qlonglong{-1743}));
    EXPECT_EQ(error->value(QStringView(ScriptErrorKey::appName).toString()), QStringLiteral("System Events"));
    EXPECT_EQ(error->value(QStringView(ScriptErrorKey::range).toString()),
              QVariant(QVariantList{qlonglong{12}, qlonglong{7}}));
}

TEST_F(ScriptHostTest, ErrorWithoutAMessage_HasNone) {
    world().scriptError = {{QStringLiteral("NSAppleScriptErrorNumber"), -2700}};
    const auto error = host->run(QStringLiteral("x"));
    ASSERT_TRUE(error);
    EXPECT_FALSE(error->contains(QStringView(ScriptErrorKey::message).toString()));
}

TEST_F(ScriptHostTest, ErrorWithoutADictionary_IsAnError) {
    world().scriptError.emplace();
    world().scriptGivesNoInfo = true;
    const auto error = host->run(QStringLiteral("x"));
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->isEmpty());
}

TEST_F(ScriptHostTest, ScriptsOfTwoHosts_TakeTurns) {
    // The second is asked for while the first runs, and has time enough to end before it if nothing holds it
    // up.
    using namespace std::chrono_literals;
    const auto other = makeMacScriptHost();
    std::future<void> second;
    std::future_status secondBeforeTheFirst{};
    bool isFirst = true;
    world().duringScript = [&] {
        if (std::exchange(isFirst, false)) {
            second = std::async(std::launch::async,
                                [&] { static_cast<void>(other->run(QStringLiteral("second"))); });
            secondBeforeTheFirst = second.wait_for(100ms);
        }
    };
    EXPECT_FALSE(host->run(QStringLiteral("first")));
    second.wait();
    world().duringScript = {};
    EXPECT_EQ(secondBeforeTheFirst, std::future_status::timeout);
    EXPECT_EQ(calls(), QStringList({QStringLiteral("script first"), QStringLiteral("script second")}));
}

} // namespace

} // namespace brivandel
