#include "app/LaunchRequest.h"

#include <array>
#include <utility>

namespace brivandel {

namespace {

const auto& words() {
    static const std::array<std::pair<LaunchRequest, QString>, 6> table{{
        {LaunchRequest::None, QStringLiteral("none")},
        {LaunchRequest::Toggle, QStringLiteral("toggle")},
        {LaunchRequest::Popover, QStringLiteral("popover")},
        {LaunchRequest::Settings, QStringLiteral("settings")},
        {LaunchRequest::Commands, QStringLiteral("commands")},
        {LaunchRequest::Quit, QStringLiteral("quit")},
    }};
    return table;
}

} // namespace

QString wordFor(LaunchRequest request) {
    for (const auto& [known, word] : words()) {
        if (known == request) {
            return word;
        }
    }
    return {};
}

std::optional<LaunchRequest> launchRequestFor(const QString& word) {
    for (const auto& [request, known] : words()) {
        if (known == word) {
            return request;
        }
    }
    return std::nullopt;
}

} // namespace brivandel
