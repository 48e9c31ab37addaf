#include "views/WelcomeView.h"

#include "widgets/Button.h"
#include "widgets/Label.h"
#include "widgets/PageDots.h"

#include <QTest>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

class WelcomeViewTest : public testing::Test {
protected:
    void SetUp() override { view.show(); }

    Button& button(const char* text) {
        auto* found = view.findChild<Button*>(QString::fromLatin1(text));
        EXPECT_NE(found, nullptr) << text;
        return *found;
    }
    void press(const char* text) { QTest::mouseClick(&button(text), Qt::LeftButton); }
    QStringList visibleButtons() {
        QStringList texts;
        for (const auto* found : view.findChildren<Button*>()) {
            if (found->isVisible()) {
                texts += found->text();
            }
        }
        return texts;
    }
    QStringList visibleTexts() {
        QStringList texts;
        for (const auto* label : view.findChildren<Label*>()) {
            if (label->isVisible()) {
                texts += label->text();
            }
        }
        return texts;
    }
    int dot() { return view.findChild<PageDots*>()->currentPage(); }

    int dismissals = 0;
    WelcomeView view{[this] { ++dismissals; }};
};

TEST_F(WelcomeViewTest, FirstPage_HasNoWayBack) {
    EXPECT_EQ(view.page(), 0);
    EXPECT_EQ(visibleButtons(), QStringList{QStringLiteral("Next")});
    EXPECT_EQ(dot(), 0);
    EXPECT_EQ(visibleTexts(),
              (QStringList{
                  QStringLiteral("Hands-free control for Logic Pro"),
                  QStringLiteral("Find it in the menu bar"),
                  QStringLiteral("Look for the BV icon at the top of your screen."),
                  QStringLiteral("Enable voice control"),
                  QStringLiteral("Click the BV icon and select \"Enable Voice Control\"."),
                  QStringLiteral("Say \"Hey Logic\" + a command"),
                  QStringLiteral("\"Hey Logic play\", \"Hey Logic record\", \"Hey Logic stop\""),
              }));
}

TEST_F(WelcomeViewTest, SecondPage_GoesBothWays) {
    press("Next");
    EXPECT_EQ(visibleButtons(), (QStringList{QStringLiteral("Back"), QStringLiteral("Next")}));
    EXPECT_EQ(dot(), 1);
    EXPECT_EQ(visibleTexts(),
              (QStringList{
                  QStringLiteral("Grant Permissions"),
                  QStringLiteral("Brivandel needs three permissions to work."),
                  QStringLiteral("Accessibility Access"),
                  QStringLiteral("Required to send keyboard shortcuts to Logic Pro."),
                  QStringLiteral("System Settings → Privacy & Security → Accessibility"),
                  QStringLiteral("Click +, navigate to Applications, select Brivandel, and click Open."),
                  QStringLiteral("Microphone & Speech Recognition"),
                  QStringLiteral("macOS will prompt you automatically. Click \"OK\" to allow."),
                  QStringLiteral("Open Logic Pro"),
                  QStringLiteral("Logic Pro must be running for commands to work."),
              }));
    press("Back");
    EXPECT_EQ(view.page(), 0);
    EXPECT_EQ(dot(), 0);
}

TEST_F(WelcomeViewTest, LastPage_GetsStarted) {
    press("Next");
    press("Next");
    EXPECT_EQ(visibleButtons(), (QStringList{QStringLiteral("Back"), QStringLiteral("Get Started")}));
    EXPECT_EQ(dot(), 2);
    EXPECT_EQ(
        visibleTexts(),
        (QStringList{
            QStringLiteral("You're All Set!"),
            QStringLiteral("Brivandel is running in your menu bar."),
            QStringLiteral("View all commands"),
            QStringLiteral("Open Command Reference from the menu bar to see every available voice command."),
            QStringLiteral("Customize in Settings"),
            QStringLiteral("Change the wake word, audio device, feedback sounds, and idle timeout."),
            QStringLiteral("100% private"),
            QStringLiteral("All speech recognition happens on-device. No audio ever leaves your Mac."),
        }));
    EXPECT_EQ(dismissals, 0);
    press("Get Started");
    EXPECT_EQ(dismissals, 1);
    EXPECT_EQ(view.page(), 2);
}

TEST_F(WelcomeViewTest, Return_GoesOnPageByPage) {
    for (int page = 0; page < 3; ++page) {
        EXPECT_EQ(view.page(), page);
        QTest::keyClick(view.focusWidget(), Qt::Key_Return);
    }
    EXPECT_EQ(dismissals, 1);
}

TEST_F(WelcomeViewTest, BackByKeyboard_GoesAllTheWay) {
    view.activateWindow();
    QCoreApplication::processEvents();
    press("Next");
    press("Next");
    button("Back").setFocus();
    QTest::keyClick(view.focusWidget(), Qt::Key_Space);
    QTest::keyClick(view.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(view.page(), 0);
    EXPECT_EQ(view.focusWidget(), &button("Next"));
}

TEST_F(WelcomeViewTest, Size_IsFixed) {
    EXPECT_EQ(view.size(), QSize(520, 520));
    for (int page = 0; page < 2; ++page) {
        press("Next");
        EXPECT_EQ(view.size(), QSize(520, 520));
    }
}

} // namespace
} // namespace brivandel
