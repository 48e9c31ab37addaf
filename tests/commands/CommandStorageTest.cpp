#include "commands/CommandStorage.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

const QByteArray storedForm =
    R"([{"id":"0A1B2C3D-4E5F-4061-8273-8495A6B7C8D9","name":"Bounce","triggers":["bounce it","bounce"],)"
    R"("capturedKey":{"keyCode":11,"modifierFlags":1048576,"displayString":"⌘B","appleScript":"tell \"x\"\nend"},)"
    R"("isEnabled":true}])";

CustomCommand bounce() {
    return {
        .id = QUuid::fromString(QStringLiteral("0A1B2C3D-4E5F-4061-8273-8495A6B7C8D9")),
        .name = QStringLiteral("Bounce"),
        .triggers = {QStringLiteral("bounce it"), QStringLiteral("bounce")},
        .capturedKey = {11, 1048576, QStringLiteral("⌘B"), QStringLiteral("tell \"x\"\nend")},
        .isEnabled = true,
    };
}

QByteArray with(const char* part, const char* replacement) {
    QByteArray changed = storedForm;
    EXPECT_TRUE(changed.contains(part)) << part;
    return changed.replace(part, replacement);
}

TEST(CustomCommandStorage, Encoding_HasTheFieldsInTheirOrder) {
    EXPECT_EQ(encodeCustomCommands({bounce()}), storedForm);
    EXPECT_EQ(encodeCustomCommands({}), QByteArray("[]"));
}

TEST(CustomCommandStorage, Decoding_GivesBackWhatWasEncoded) {
    CustomCommand second = bounce();
    second.id = QUuid::createUuid();
    second.name = QStringLiteral("名前 \U0001F3B8 \"quoted\" \\ / \u0001");
    second.triggers = {};
    second.isEnabled = false;
    second.capturedKey.modifierFlags = std::numeric_limits<std::int64_t>::min();
    const CustomCommandList commands = {bounce(), second};
    EXPECT_EQ(decodeCustomCommands(encodeCustomCommands(commands)), commands);
}

TEST(CustomCommandStorage, StoredTexts_AreNotComputedAgain) {
    const auto commands = decodeCustomCommands(with("⌘B", "as captured"));
    ASSERT_TRUE(commands);
    EXPECT_EQ(commands->front().capturedKey.displayString, QStringLiteral("as captured"));
}

TEST(CustomCommandStorage, IdentifierInLowerCase_IsReadAndWrittenInUpperCase) {
    const auto commands = decodeCustomCommands(with("0A1B2C3D", "0a1b2c3d"));
    ASSERT_TRUE(commands);
    EXPECT_EQ(encodeCustomCommands(*commands), storedForm);
}

TEST(CustomCommandStorage, UnknownMember_IsPassedOver) {
    EXPECT_EQ(decodeCustomCommands(with("\"name\"", "\"colour\":\"red\",\"name\"")),
              CustomCommandList{bounce()});
}

class DamagedCommands : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(DamagedCommands, Decoding_FailsAsAWhole) {
    EXPECT_EQ(decodeCustomCommands(with(GetParam().first, GetParam().second)), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    CustomCommandStorage, DamagedCommands,
    testing::Values(
        std::pair{"\"id\":", "\"ID\":"}, std::pair{"\"name\":", "\"Name\":"},
        std::pair{"\"triggers\":", "\"trigger\":"}, std::pair{"\"capturedKey\":", "\"key\":"},
        std::pair{",\"isEnabled\":true", ""}, std::pair{"\"keyCode\":", "\"code\":"},
        std::pair{"\"modifierFlags\":", "\"flags\":"}, std::pair{"\"displayString\":", "\"display\":"},
        std::pair{"\"appleScript\":", "\"script\":"}, std::pair{"\"Bounce\"", "7"},
        std::pair{"\"Bounce\"", "null"}, std::pair{"\"keyCode\":11", "\"keyCode\":11.5"},
        std::pair{"\"keyCode\":11", "\"keyCode\":true"}, std::pair{"\"keyCode\":11", "\"keyCode\":\"11\""},
        std::pair{"\"keyCode\":11", "\"keyCode\":9223372036854775808"},
        std::pair{"\"isEnabled\":true", "\"isEnabled\":1"},
        std::pair{"\"isEnabled\":true", "\"isEnabled\":\"true\""}, std::pair{"\"bounce\"]", "5]"},
        std::pair{"[\"bounce it\",\"bounce\"]", "\"bounce\""}, std::pair{"0A1B2C3D-", "0A1B2C3D"},
        std::pair{"\"0A1B2C3D-4E5F-4061-8273-8495A6B7C8D9\"", "\"{0A1B2C3D-4E5F-4061-8273-8495A6B7C8D9}\""},
        std::pair{"0A1B", "0G1B"}, std::pair{"[{", "{"}, std::pair{"}]", "}"}, std::pair{"}]", "},1]"},
        std::pair{"Bounce", "\xff"}));

TEST(CustomCommandStorage, NoJson_IsNoList) {
    for (const QByteArray& text :
         {QByteArray(), QByteArray("not json"), QByteArray("{}"), QByteArray("null")}) {
        EXPECT_EQ(decodeCustomCommands(text), std::nullopt) << text.toStdString();
    }
}

TEST(CustomCommandStorage, DeepNesting_IsNoList) {
    constexpr int depth = 200'000;
    EXPECT_EQ(decodeCustomCommands(QByteArray(depth, '[') + QByteArray(depth, ']')), std::nullopt);
}

TEST(TriggerOverrideStorage, Decoding_GivesBackWhatWasEncoded) {
    const TriggerOverrides overrides = {
        {QStringLiteral("play"), {}},
        {QStringLiteral("stop"), {QStringLiteral("halt"), QStringLiteral("whoa")}},
    };
    EXPECT_EQ(encodeTriggerOverrides(overrides), QByteArray(R"({"play":[],"stop":["halt","whoa"]})"));
    EXPECT_EQ(decodeTriggerOverrides(encodeTriggerOverrides(overrides)), overrides);
    EXPECT_EQ(decodeTriggerOverrides("{}"), TriggerOverrides());
}

TEST(TriggerOverrideStorage, OneWrongValue_FailsTheWholeMap) {
    for (const QByteArray& text :
         {QByteArray("[]"), QByteArray(R"({"play":"x"})"), QByteArray(R"({"play":[1]})"),
          QByteArray(R"({"play":[],"stop":null})"), QByteArray("{")}) {
        EXPECT_EQ(decodeTriggerOverrides(text), std::nullopt) << text.toStdString();
    }
}

} // namespace
} // namespace brivandel
