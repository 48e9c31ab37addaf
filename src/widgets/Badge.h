#pragma once

#include "widgets/Colors.h"

#include <QString>
#include <QWidget>

namespace brivandel {

/// A word in capitals on a small tinted plate: of what kind something is.
class Badge final : public QWidget {
    Q_OBJECT
public:
    explicit Badge(QWidget* parent = nullptr);

    void setBadge(const QString& text, NamedColor tint);
    [[nodiscard]] const QString& text() const { return text_; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
    NamedColor tint_ = NamedColor::Gray;
};

} // namespace brivandel
