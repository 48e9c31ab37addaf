#include "platform/linux/applescript/ProgramScripts.h"
#include "platform/linux/keys/Desktop.h"

#include <gtest/gtest.h>

namespace brivandel::testing {

namespace {

QStringList wordsOf(KeyModifiers modifiers) {
    QStringList words;
    const auto add = [&](KeyModifier modifier, const char* word) {
        if (modifiers.testFlag(modifier)) {
            words += QString::fromUtf8(word);
        }
    };
    add(KeyModifier::Command, "command");
    add(KeyModifier::Control, "control");
    add(KeyModifier::Option, "option");
    add(KeyModifier::Shift, "shift");
    return words;
}

bool isDigit(const QString& text) {
    return text >= QStringLiteral("0") && text <= QStringLiteral("9");
}

void expectKey(const SeenKey& seen, const ExpectedKey& expected, bool digitsNeedShift) {
    if (const auto* const place = std::get_if<std::uint16_t>(&expected.key)) {
        EXPECT_EQ(seen.keyCode, *place);
        EXPECT_EQ(seen.modifiers, wordsOf(expected.modifiers));
        return;
    }
    const auto& character = std::get<QString>(expected.key);
    // With command, a text would be a control character: there the symbol tells.
    if (expected.modifiers.testFlag(KeyModifier::Command)) {
        EXPECT_EQ(seen.symbol.toLower(), character);
    } else {
        EXPECT_EQ(seen.text, character);
    }
    const bool ownShift = digitsNeedShift && isDigit(character);
    EXPECT_EQ(seen.modifiers,
              wordsOf(ownShift ? expected.modifiers | KeyModifier::Shift : expected.modifiers));
}

} // namespace

class ProgramScriptOnDesktop : public DesktopTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(ProgramScriptOnDesktop, KeysArriveInOrder) {
    const QString layout = QString::fromUtf8(GetParam());
    setLayout(layout);
    KeyWindowProcess window;
    const auto host = makeHost();
    for (const ProgramScript& script : programScripts()) {
        SCOPED_TRACE(script.name);

        const auto error = host->run(script.source);

        EXPECT_FALSE(error) << describe(*error).toStdString();
        const auto keys = window.takeKeys(x());
        ASSERT_EQ(keys.size(), script.keys.size());
        for (std::size_t i = 0; i < keys.size(); ++i) {
            expectKey(keys[i], script.keys[i], layout == u"fr");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Layouts, ProgramScriptOnDesktop, ::testing::Values("us", "fr", "de"));

} // namespace brivandel::testing
