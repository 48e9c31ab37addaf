#pragma once

#include <QDialog>

namespace brivandel {

/// A dialog that hangs from the top of its window, goes where that goes, and holds the window's other
/// controls back while it is open. Deleted when it is closed.
class Sheet : public QDialog {
    Q_OBJECT
public:
    explicit Sheet(QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void hang();
};

} // namespace brivandel
