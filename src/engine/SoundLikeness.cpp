#include "engine/SoundLikeness.h"

#include <QHash>
#include <QStringView>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace brivandel {

namespace {

struct Phone {
    QStringView name;
    int family = 0; // phones of one family are mistaken for each other more easily
};

enum Family : int {
    Vowel,
    LipStop,
    TongueStop,
    BackStop,
    LipHiss,
    ToothHiss,
    Hiss,
    Hush,
    Nasal,
    Liquid,
    Glide,
    Breath
};

constexpr std::array phones = {
    Phone{u"AA", Vowel},     Phone{u"AE", Vowel},     Phone{u"AH", Vowel},     Phone{u"AO", Vowel},
    Phone{u"AW", Vowel},     Phone{u"AY", Vowel},     Phone{u"EH", Vowel},     Phone{u"ER", Vowel},
    Phone{u"EY", Vowel},     Phone{u"IH", Vowel},     Phone{u"IY", Vowel},     Phone{u"OW", Vowel},
    Phone{u"OY", Vowel},     Phone{u"UH", Vowel},     Phone{u"UW", Vowel},     Phone{u"B", LipStop},
    Phone{u"P", LipStop},    Phone{u"D", TongueStop}, Phone{u"T", TongueStop}, Phone{u"G", BackStop},
    Phone{u"K", BackStop},   Phone{u"F", LipHiss},    Phone{u"V", LipHiss},    Phone{u"DH", ToothHiss},
    Phone{u"TH", ToothHiss}, Phone{u"S", Hiss},       Phone{u"Z", Hiss},       Phone{u"CH", Hush},
    Phone{u"JH", Hush},      Phone{u"SH", Hush},      Phone{u"ZH", Hush},      Phone{u"M", Nasal},
    Phone{u"N", Nasal},      Phone{u"NG", Nasal},     Phone{u"L", Liquid},     Phone{u"R", Liquid},
    Phone{u"W", Glide},      Phone{u"Y", Glide},      Phone{u"HH", Breath},
};

constexpr double gapCost = 1;
constexpr double strangerCost = 1;
constexpr double relativeCost = 0.5;

double exchangeCost(std::uint8_t one, std::uint8_t other) {
    if (one == other) {
        return 0;
    }
    return phones.at(one).family == phones.at(other).family ? relativeCost : strangerCost;
}

} // namespace

PhoneSequence phoneSequence(const QString& text) {
    static const QHash<QStringView, std::uint8_t> places = [] {
        QHash<QStringView, std::uint8_t> table;
        for (std::size_t place = 0; place < phones.size(); ++place) {
            table.insert(phones.at(place).name, static_cast<std::uint8_t>(place));
        }
        return table;
    }();
    PhoneSequence sequence;
    for (const QStringView phone : QStringView(text).split(u' ', Qt::SkipEmptyParts)) {
        if (const auto place = places.constFind(phone); place != places.cend()) {
            sequence += *place;
        }
    }
    return sequence;
}

double soundDistance(const PhoneSequence& one, const PhoneSequence& other, double limit) {
    const auto longer = static_cast<double>(std::max(one.size(), other.size()));
    if (longer == 0) {
        return 0;
    }
    // Each phone that one has more costs a gap at least.
    const double leastDistance = static_cast<double>(std::abs(one.size() - other.size())) * gapCost / longer;
    if (leastDistance > limit) {
        return leastDistance;
    }

    std::vector<double> row(static_cast<std::size_t>(other.size()) + 1);
    for (std::size_t column = 0; column < row.size(); ++column) {
        row[column] = static_cast<double>(column) * gapCost;
    }
    for (const std::uint8_t phone : one) {
        double diagonal = std::exchange(row[0], row[0] + gapCost);
        for (std::size_t column = 1; column < row.size(); ++column) {
            const double exchanged =
                diagonal + exchangeCost(phone, other.at(static_cast<qsizetype>(column) - 1));
            const double cheapest = std::min({exchanged, row[column] + gapCost, row[column - 1] + gapCost});
            diagonal = std::exchange(row[column], cheapest);
        }
    }
    return row.back() / longer;
}

} // namespace brivandel
