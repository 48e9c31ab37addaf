#pragma once

#include <QWidget>

class QVBoxLayout;

namespace brivandel {

/// A titled group of a form: rows on a common plate with lines between them. A row is hidden and shown by
/// hiding and showing what was added.
class FormSection final : public QWidget {
    Q_OBJECT
public:
    explicit FormSection(const QString& title, QWidget* parent = nullptr);

    void addRow(QWidget* content);
    /// A caption at the leading edge, the control at the trailing one.
    void addRow(const QString& caption, QWidget* control);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QVBoxLayout* rows_;
};

} // namespace brivandel
