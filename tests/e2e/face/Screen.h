#pragma once

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QString>

#include <xcb/xcb.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace brivandel {

/// A person before the X display: sees windows and colours, presses buttons and keys.
class Screen {
public:
    Screen();
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    struct Window {
        xcb_window_t id = XCB_WINDOW_NONE;
        QRect geometry; ///< on the screen, without the window manager's frame
    };
    [[nodiscard]] QRect geometry() const;
    /// The windows of a program that can be seen, by title; those that the window manager knows and those
    /// that it does not.
    [[nodiscard]] std::vector<Window> windowsTitled(const QString& title) const;
    /// By class (WM_CLASS, the second name).
    [[nodiscard]] std::vector<Window> windowsOfClass(const QString& windowClass) const;
    /// How many menus are open, of whatever program: windows that the window manager does not manage, and
    /// that are larger than tool tips.
    [[nodiscard]] int menuCount() const;
    [[nodiscard]] QColor colorAt(const QPoint& place) const;
    /// How many pixels of the rectangle have the colour, give or take a little.
    [[nodiscard]] int countOf(const QColor& color, const QRect& rect) const;

    /// 1: left, 3: right.
    void click(const QPoint& place, int button = 1);
    void press(xcb_keysym_t key);
    /// Waits until keys go to the window; whether they did in time.
    [[nodiscard]] bool waitForFocus(xcb_window_t window, std::chrono::milliseconds patience);
    /// As the user does by the cross in the title bar.
    void close(xcb_window_t window);
    void move(xcb_window_t window, const QPoint& place);

    /// Waits for something to change on the screen until the condition holds; whether it did in time.
    [[nodiscard]] bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds patience);

private:
    [[nodiscard]] std::vector<Window> windowsWhere(const std::function<bool(xcb_window_t)>& condition) const;
    void collect(xcb_window_t parent, const std::function<bool(xcb_window_t)>& condition,
                 std::vector<Window>& found) const;
    [[nodiscard]] QByteArray property(xcb_window_t window, const char* name) const;
    [[nodiscard]] xcb_atom_t atom(const char* name) const;
    void tell(xcb_window_t window, const char* message, std::uint32_t value) const;

    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_screen_t* screen_ = nullptr;
};

} // namespace brivandel
