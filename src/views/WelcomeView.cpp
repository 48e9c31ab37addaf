#include "views/WelcomeView.h"

#include "views/WelcomePages.h"
#include "widgets/Button.h"
#include "widgets/PageDots.h"

#include <QHBoxLayout>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

namespace brivandel {

namespace {

constexpr int windowSide = 520;
constexpr int pageCount = 3;

Button* navigationButton(const QString& text, ButtonStyle style) {
    auto* button = new Button(text, style);
    button->setControlSize(ControlSize::Large);
    button->setObjectName(text);
    return button;
}

} // namespace

WelcomeView::WelcomeView(std::function<void()> onDismiss, QWidget* parent)
    : QWidget(parent)
    , onDismiss_(std::move(onDismiss))
    , pages_(new QStackedWidget)
    , dots_(new PageDots(pageCount))
    , back_(navigationButton(QStringLiteral("Back"), ButtonStyle::Bordered))
    , next_(navigationButton(QStringLiteral("Next"), ButtonStyle::Prominent))
    , getStarted_(navigationButton(QStringLiteral("Get Started"), ButtonStyle::Prominent)) {
    setFixedSize(windowSide, windowSide);
    pages_->addWidget(makeWelcomePage());
    pages_->addWidget(makePermissionsPage());
    pages_->addWidget(makeReadyPage());

    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    stack->addWidget(pages_, 1);
    stack->addWidget(dots_, 0, Qt::AlignHCenter);
    stack->addSpacing(16);
    auto* navigation = new QHBoxLayout;
    navigation->setContentsMargins(40, 0, 40, 20);
    navigation->addWidget(back_);
    navigation->addStretch();
    navigation->addWidget(next_);
    navigation->addWidget(getStarted_);
    stack->addLayout(navigation);

    connect(back_, &Button::clicked, this, [this] { setPage(page_ - 1); });
    connect(next_, &Button::clicked, this, [this] { setPage(page_ + 1); });
    connect(getStarted_, &Button::clicked, this, [this] { onDismiss_(); });
    setPage(0);
}

void WelcomeView::setPage(int page) {
    page_ = page;
    pages_->setCurrentIndex(page);
    dots_->setCurrentPage(page);
    const bool isLast = page > 1;
    next_->setVisible(!isLast);
    getStarted_->setVisible(isLast);
    auto* forward = isLast ? getStarted_ : next_;
    forward->setDefault(true);
    const bool goesBack = back_->hasFocus() && page >= 1;
    back_->setVisible(page >= 1);
    // The same key pressed again goes on in the same direction, and the focus never falls off the row.
    if (!goesBack) {
        forward->setFocus();
    }
}

} // namespace brivandel
