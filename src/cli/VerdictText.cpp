#include "cli/VerdictText.h"

#include <cmath>

namespace brivandel {

QString verdictText(const UtteranceVerdict& verdict) {
    return QStringLiteral("%1 “%2”: %3 (%4)")
        .arg(verdict.isAccepted ? QStringLiteral("took it for") : QStringLiteral("not taken for"),
             verdict.text, verdict.reason)
        .arg(verdict.score, 0, 'f', 1);
}

nlohmann::ordered_json verdictMembers(const UtteranceVerdict& verdict) {
    constexpr double tenths = 10;
    return {{"nearest", verdict.text.toStdString()},
            {"accepted", verdict.isAccepted},
            {"score", std::round(verdict.score * tenths) / tenths},
            {"why", verdict.reason.toStdString()}};
}

} // namespace brivandel
