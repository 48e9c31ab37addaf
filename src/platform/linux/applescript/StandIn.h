#pragma once

#include "platform/linux/applescript/KeyTable.h"
#include "platform/linux/keys/KeySender.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <variant>

namespace brivandel {

/// The program that stands for "Logic Pro", and its keys.
struct StandIn {
    /// An empty text: the program of that name.
    TargetName target;
    /// As people call it; empty: as the target is called.
    QString name;
    /// Null: keys are sent as scripts have them.
    std::shared_ptr<const script::KeyTable> keys;
};

/// Says who stands for "Logic Pro" at that moment. Any thread.
class StandInChoice {
public:
    /// The program of that name, if it has a window; one program is one target under all its names.
    using FindProgram = std::function<std::optional<KeyTarget>(const TargetName&)>;

    virtual ~StandInChoice() = default;
    /// The stand-in, or as a sentence why it cannot be told.
    [[nodiscard]] virtual std::variant<StandIn, QString> choose(const FindProgram& find) const = 0;
};

/// The same always.
class FixedStandIn final : public StandInChoice {
public:
    explicit FixedStandIn(StandIn standIn) : standIn_(std::move(standIn)) {}
    [[nodiscard]] std::variant<StandIn, QString> choose(const FindProgram& /*find*/) const override {
        return standIn_;
    }

private:
    StandIn standIn_;
};

/// Nobody, always for the same reason.
class NoStandIn final : public StandInChoice {
public:
    explicit NoStandIn(QString reason) : reason_(std::move(reason)) {}
    [[nodiscard]] std::variant<StandIn, QString> choose(const FindProgram& /*find*/) const override {
        return reason_;
    }

private:
    QString reason_;
};

} // namespace brivandel
