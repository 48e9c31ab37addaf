#pragma once

#include <QStringList>
#include <QWidget>

class QButtonGroup;

namespace brivandel {

/// One of a few choices, side by side: radio buttons on a common plate. Arrow keys move the choice.
class SegmentedPicker final : public QWidget {
    Q_OBJECT
public:
    /// The first choice is picked.
    explicit SegmentedPicker(const QStringList& choices, QWidget* parent = nullptr);

    [[nodiscard]] int currentIndex() const;
    void setCurrentIndex(int index);

Q_SIGNALS:
    /// Also when set by setCurrentIndex().
    void currentIndexChanged(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QButtonGroup* group_;
};

} // namespace brivandel
