#include "platform/linux/applescript/ProgramScripts.h"
#include "platform/linux/keys/Desktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brivandel::testing {

using ::testing::IsEmpty;
using ::testing::SizeIs;

class FocusTest : public DesktopTest {
protected:
    std::unique_ptr<KeyWindowProcess> openOther() {
        return std::make_unique<KeyWindowProcess>(
            programNamed(QStringLiteral("Other Program")),
            QStringList{QStringLiteral("--class"), QStringLiteral("Other"), QStringLiteral("--name"),
                        QStringLiteral("other"), QStringLiteral("--title"), QStringLiteral("Logic Pro")});
    }

    /// What a program says of a dialog that has to be answered first.
    void makeModal(xcb_window_t dialog) {
        const xcb_atom_t modal = x().atom(x11::Atom::NetWmStateModal);
        xcb_change_property(x().xcb(), XCB_PROP_MODE_REPLACE, dialog, x().atom(x11::Atom::NetWmState),
                            XCB_ATOM_ATOM, 32, 1, &modal);
    }
};

TEST_F(FocusTest, AnotherWindowHasTheFocus_NoKeyIsSentAndItIsNamed) {
    KeyWindowProcess workstation;
    const auto other = openOther();

    const QString message =
        run(QStringLiteral("tell application \"System Events\"\ntell process \"Logic Pro\"\n"
                           "key code 49\nend tell\nend tell"));

    EXPECT_EQ(message, QStringLiteral(
                           "System Events got an error: \"Other Program\" has the keyboard focus instead of "
                           "\"Logic Pro\"."));
    EXPECT_THAT(workstation.takeKeys(x()), IsEmpty());
    EXPECT_THAT(other->takeKeys(x()), IsEmpty());
}

TEST_F(FocusTest, WindowBehind_IsBroughtToTheFront) {
    KeyWindowProcess workstation;
    const auto other = openOther();

    EXPECT_EQ(run(keystrokeScript(QStringLiteral("key code 49"))), QString());

    EXPECT_THAT(workstation.takeKeys(x()), SizeIs(1));
    EXPECT_THAT(other->takeKeys(x()), IsEmpty());
}

TEST_F(FocusTest, MinimisedWindow_IsShownAgain) {
    KeyWindowProcess workstation;
    minimise(workstation.window());

    EXPECT_EQ(run(barScript(7, ThenPlay::Yes)), QString());

    EXPECT_THAT(workstation.takeKeys(x()), SizeIs(4));
}

TEST_F(FocusTest, DialogOfTheTarget_GetsTheKeys) {
    KeyWindowProcess workstation;
    const xcb_window_t dialog = workstation.openDialog();
    ASSERT_TRUE(waitUntil(dialog, [&] { return windows().focusedWindow() == dialog; }));

    EXPECT_EQ(run(keystrokeScript(QStringLiteral("key code 36"))), QString());

    EXPECT_THAT(workstation.takeKeys(x()), SizeIs(1));
}

TEST_F(FocusTest, ModalDialogWasOpenBefore_NoKeyIsSentAndItIsNamed) {
    KeyWindowProcess workstation;
    const xcb_window_t dialog = workstation.openDialog();
    ASSERT_TRUE(waitUntil(dialog, [&] { return windows().focusedWindow() == dialog; }));
    makeModal(dialog);
    x().sync();

    EXPECT_EQ(run(keystrokeScript(QStringLiteral("key code 36"))),
              QStringLiteral(
                  "System Events got an error: A dialog of \"Logic Pro\", “Dialog”, waits for an answer, "
                  "and the key would go there."));
    EXPECT_THAT(workstation.takeKeys(x()), IsEmpty());

    EXPECT_EQ(run(keystrokeScript(QStringLiteral("key code 53"))), QString());
    EXPECT_THAT(workstation.takeKeys(x()), SizeIs(1));
}

TEST_F(FocusTest, ModalDialogBesideTheFocusedWindow_NoKeyIsSent) {
    KeyWindowProcess workstation;
    const xcb_window_t dialog = workstation.openDialog();
    ASSERT_TRUE(waitUntil(dialog, [&] { return windows().focusedWindow() == dialog; }));
    makeModal(dialog);
    xcb_set_input_focus(x().xcb(), XCB_INPUT_FOCUS_PARENT, workstation.window(), XCB_CURRENT_TIME);
    x().sync();
    ASSERT_TRUE(waitUntil(dialog, [&] { return windows().focusedWindow() == workstation.window(); }));

    EXPECT_TRUE(run(keystrokeScript(QStringLiteral("key code 36"))).contains(QStringLiteral("“Dialog”")));
    EXPECT_THAT(workstation.takeKeys(x()), IsEmpty());
}

TEST_F(FocusTest, DialogOfAnotherProcessForTheTarget_BelongsToIt) {
    KeyWindowProcess workstation;
    const auto other = openOther();
    const xcb_window_t parent = workstation.window();
    xcb_change_property(x().xcb(), XCB_PROP_MODE_REPLACE, other->window(), XCB_ATOM_WM_TRANSIENT_FOR,
                        XCB_ATOM_WINDOW, 32, 1, &parent);
    x().sync();

    EXPECT_TRUE(windows().belongsTo(other->window(), windows().ownerOf(parent)));
}

TEST_F(FocusTest, WindowsTransientForEachOther_AreNoEndlessLoop) {
    KeyWindowProcess workstation;
    const auto other = openOther();
    const xcb_window_t itself = other->window();
    xcb_change_property(x().xcb(), XCB_PROP_MODE_REPLACE, itself, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW,
                        32, 1, &itself);
    x().sync();

    EXPECT_FALSE(windows().belongsTo(itself, windows().ownerOf(workstation.window())));
}

TEST_F(FocusTest, TargetClosedBetweenRaiseAndKey_NoKeyIsSent) {
    auto workstation = std::make_unique<KeyWindowProcess>();
    const auto other = openOther();
    const OpenTarget open = openTarget();
    ASSERT_FALSE(open.session->raise(open.target, soon()));
    workstation.reset();
    ASSERT_TRUE(waitUntil(other->window(), [&] { return windows().focusedWindow() == other->window(); }));

    const auto failure = open.session->pressKey(open.target, 49, {}, soon());

    EXPECT_EQ(failure, (KeyFailure{KeyFailure::Kind::FocusElsewhere, QStringLiteral("Other Program")}));
    EXPECT_THAT(other->takeKeys(x()), IsEmpty());
}

TEST_F(FocusTest, TargetClosedBeforeRaise_IsNotRunning) {
    auto workstation = std::make_unique<KeyWindowProcess>();
    const OpenTarget open = openTarget();
    workstation.reset();

    const auto failure = open.session->raise(open.target, soon());

    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind, KeyFailure::Kind::NotRunning);
}

TEST_F(FocusTest, KeyboardHeldByAnotherProgram_NoKeyIsSent) {
    KeyWindowProcess workstation;
    const auto grab = x11::reply<xcb_grab_keyboard_reply>(
        x().xcb(), xcb_grab_keyboard(x().xcb(), 0, x().root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                                     XCB_GRAB_MODE_ASYNC));
    ASSERT_EQ(grab->status, XCB_GRAB_STATUS_SUCCESS);

    const QString message = run(keystrokeScript(QStringLiteral("key code 49")));

    xcb_ungrab_keyboard(x().xcb(), XCB_CURRENT_TIME);
    x().sync();
    EXPECT_EQ(message, QStringLiteral(
                           "System Events got an error: A menu or another program holds the keyboard, so the "
                           "key would not reach \"Logic Pro\"."));
    EXPECT_THAT(workstation.takeKeys(x()), IsEmpty());
}

TEST_F(FocusTest, ServerHeldByAnotherProgram_ScriptGivesUpInTime) {
    const KeyWindowProcess workstation;
    const OpenTarget open = openTarget();
    xcb_grab_server(x().xcb());
    x().sync();

    const auto failure = open.session->pressKey(
        open.target, 49, {}, std::chrono::steady_clock::now() + std::chrono::milliseconds(200));

    xcb_ungrab_server(x().xcb());
    x().sync();
    EXPECT_EQ(failure,
              (KeyFailure{KeyFailure::Kind::TimedOut, QStringLiteral("The X display does not answer.")}));
}

} // namespace brivandel::testing
