#pragma once

#include <QTabBar>

namespace brivandel {

/// Tabs of a window: a symbol over a title each, side by side in the middle. Arrow keys move the choice.
class SymbolTabBar final : public QTabBar {
    Q_OBJECT
public:
    explicit SymbolTabBar(QWidget* parent = nullptr);

    /// The first tab added is the current one.
    void addSymbolTab(const QString& symbol, const QString& title);

protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override;
    [[nodiscard]] QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int hovered_ = -1;
    bool isByKeyboard_ = false; // a window that opens has the focus somewhere, which nobody asked to see
};

} // namespace brivandel
