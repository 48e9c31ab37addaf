#pragma once

#include <QString>
#include <QWidget>

#include <functional>

class QStackedWidget;

namespace brivandel {

class Button;
class PageDots;

/// The walkthrough of three pages: where the status item is, what the program needs, where to go from there.
/// It changes nothing but its own page.
class WelcomeView final : public QWidget {
    Q_OBJECT
public:
    /// onDismiss: called by the button on the last page.
    explicit WelcomeView(std::function<void()> onDismiss, QWidget* parent = nullptr);

    /// From 0 to 2.
    [[nodiscard]] int page() const { return page_; }

private:
    void setPage(int page);

    std::function<void()> onDismiss_;
    int page_ = 0;
    QStackedWidget* pages_;
    PageDots* dots_;
    Button* back_;
    Button* next_;
    Button* getStarted_;
};

} // namespace brivandel
