// Any text: a bar number comes from what follows "bar", and is found again where it is said plainly.

#include "FuzzText.h"
#include "Require.h"
#include "engine/BarNumberParser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brivandel;
    static const BarNumberParser parser;
    const QString text = fuzzText(data, size);
    if (const auto number = parser.extractBarNumber(text)) {
        require(*number >= 0, "there is no bar before the first");
        require(text.contains(u"bar", Qt::CaseInsensitive), "who names no bar goes to none");
        const QString plainly = QStringLiteral("go to bar ") + QString::number(*number);
        require(parser.extractBarNumber(plainly) == number, "a number in digits is that number");
    }
    if (const auto number = wordToNumber(text)) {
        require(*number >= 0 && *number <= 109, "words reach to 109");
    }
    return 0;
}
