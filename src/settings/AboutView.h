#pragma once

#include <QScrollArea>

namespace brivandel {

/// The About tab: what the program is, and what it does with what it hears.
class AboutView final : public QScrollArea {
    Q_OBJECT
public:
    explicit AboutView(QWidget* parent = nullptr);
};

} // namespace brivandel
