#pragma once

#include <QStringView>

#include <bitset>
#include <cstddef>

namespace brivandel {

/// Tells quickly that a text cannot hold a phrase: the text's pairs of neighbouring characters are noted
/// once, and a phrase of which one pair was not noted is not in it. Searching for each of some forty
/// triggers, nearly all of them absent, takes ten times as long.
class BigramFilter {
public:
    explicit BigramFilter(QStringView text) {
        for (qsizetype index = 1; index < text.size(); ++index) {
            pairs_.set(slot(text, index));
        }
    }

    /// False only when the phrase is certainly not in the text.
    [[nodiscard]] bool mayHold(QStringView phrase) const {
        for (qsizetype index = 1; index < phrase.size(); ++index) {
            if (!pairs_.test(slot(phrase, index))) {
                return false;
            }
        }
        return true;
    }

private:
    // Letters differ in their low five bits, so pairs of letters do not share a slot.
    static constexpr std::size_t slotCount = 1024;

    static std::size_t slot(QStringView text, qsizetype index) {
        return (text[index - 1].unicode() * std::size_t{32} + text[index].unicode()) % slotCount;
    }

    std::bitset<slotCount> pairs_;
};

} // namespace brivandel
