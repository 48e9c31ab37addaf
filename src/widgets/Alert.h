#pragma once

#include "widgets/Sheet.h"

namespace brivandel {

/// Says one thing and waits for "OK".
class Alert final : public Sheet {
    Q_OBJECT
public:
    Alert(const QString& title, const QString& message, QWidget* parent);
};

} // namespace brivandel
