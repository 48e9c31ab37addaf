#include "app/AppWindow.h"

#include "widgets/AccessibleRole.h"

#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

namespace brivandel {

AppWindow::AppWindow(const QString& title, const QSize& size, Resizing resizing, QWidget* view)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowCloseButtonHint) {
    setWindowTitle(title);
    setAccessibleRole(*this, QAccessible::Window);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    setView(view);
    if (resizing == Resizing::Fixed) {
        setFixedSize(size);
    } else {
        resize(size);
    }
    auto* close = new QShortcut(QKeySequence::Close, this);
    connect(close, &QShortcut::activated, this, &QWidget::close);
}

void AppWindow::setView(QWidget* view) {
    delete view_;
    view_ = view;
    layout()->addWidget(view);
}

void AppWindow::present() {
    const QRect room = screen()->availableGeometry();
    QRect frame = isVisible() ? frameGeometry() : QRect(pos(), size());
    frame.moveCenter(room.center());
    move(frame.topLeft());
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

} // namespace brivandel
