#include "views/WelcomePages.h"

#include "widgets/AccessibleRole.h"
#include "widgets/Label.h"
#include "widgets/Plate.h"
#include "widgets/ResourceImage.h"
#include "widgets/SymbolView.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace brivandel {

namespace {

constexpr int pagePadding = 40;
constexpr int rowSpacing = 16;
constexpr int leadingColumnWidth = 28;
constexpr int logoSide = 200;

// What stands at the beginning of the steps: its number in a blue circle.
class NumberBadge final : public QWidget {
public:
    explicit NumberBadge(int number) : number_(QString::number(number)) {
        setFixedSize(26, 26);
        setAccessibleRole(*this, QAccessible::StaticText);
        setAccessibleName(number_);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(fillColor(NamedColor::Blue, appearanceOf(palette())));
        painter.drawEllipse(rect());
        painter.setPen(Qt::white);
        painter.setFont(textFont(TextStyle::Callout, QFont::Bold));
        painter.drawText(rect(), Qt::AlignCenter, number_);
    }

private:
    QString number_;
};

class Page final : public QWidget {
public:
    Page() : stack_(new QVBoxLayout(this)) {
        stack_->setContentsMargins(0, 0, 0, 0);
        stack_->setSpacing(0);
    }

    void addSpace(int height) { stack_->addSpacing(height); }
    void addCentred(QWidget* widget) { stack_->addWidget(widget, 0, Qt::AlignHCenter); }
    void addText(const QString& text, TextStyle style, QFont::Weight weight, NamedColor color) {
        auto* label = new Label(text, style, color);
        label->setFont(textFont(style, weight));
        label->setAlignment(Qt::AlignCenter);
        stack_->addWidget(label);
    }
    void addRows(const QList<QWidget*>& rows) {
        auto* list = new QVBoxLayout;
        list->setContentsMargins(pagePadding, 0, pagePadding, 0);
        list->setSpacing(rowSpacing);
        for (auto* row : rows) {
            list->addWidget(row);
        }
        stack_->addLayout(list);
        stack_->addStretch();
    }

private:
    QVBoxLayout* stack_;
};

Label* detailLine(const QString& text) {
    auto* label = new Label(text, TextStyle::Caption, NamedColor::Secondary);
    label->setWordWrap(true);
    return label;
}

// A row: what leads it in a column of its own, then a title with what stands under it.
QWidget* makeRow(QWidget* leading, const QString& title, const QList<QWidget*>& below) {
    auto* row = new QWidget;
    auto* across = new QHBoxLayout(row);
    across->setContentsMargins(0, 0, 0, 0);
    across->setSpacing(12);
    auto* column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(leading, 0, Qt::AlignHCenter);
    column->addStretch();
    auto* columnBox = new QWidget;
    columnBox->setFixedWidth(leadingColumnWidth);
    columnBox->setLayout(column);
    across->addWidget(columnBox);
    auto* texts = new QVBoxLayout;
    texts->setContentsMargins(0, 0, 0, 0);
    texts->setSpacing(2);
    auto* heading = new Label(title);
    heading->setFont(textFont(TextStyle::Body, QFont::DemiBold));
    texts->addWidget(heading);
    for (auto* line : below) {
        texts->addWidget(line);
    }
    texts->addStretch();
    across->addLayout(texts, 1);
    return row;
}

QWidget* symbolRow(const char16_t* symbol, int side, NamedColor color, const QString& title,
                   const QString& detail) {
    return makeRow(new SymbolView(QString::fromUtf16(symbol), side, color), title, {detailLine(detail)});
}

QWidget* accessibilityPath() {
    auto* box = new Plate(NamedColor::Blue, 0.1, 8);
    auto* stack = new QVBoxLayout(box);
    stack->setContentsMargins(8, 8, 8, 8);
    stack->setSpacing(3);
    auto* path = new Label(QStringLiteral("System Settings → Privacy & Security → Accessibility"),
                           TextStyle::Caption, NamedColor::Blue);
    path->setFont(textFont(TextStyle::Caption, QFont::Medium));
    stack->addWidget(path);
    stack->addWidget(
        detailLine(QStringLiteral("Click +, navigate to Applications, select Brivandel, and click Open.")));
    return box;
}

} // namespace

QWidget* makeWelcomePage() {
    constexpr int symbolSide = 24;
    auto* page = new Page;
    page->addSpace(12);
    if (auto* logo = ResourceImage::make(QStringLiteral("logo-square"), logoSide)) {
        page->addCentred(logo);
    }
    page->addSpace(4);
    page->addText(QStringLiteral("Hands-free control for Logic Pro"), TextStyle::Title3, QFont::Normal,
                  NamedColor::Secondary);
    page->addSpace(20);
    page->addRows({
        symbolRow(u"menubar.arrow.up.rectangle", symbolSide, NamedColor::Blue,
                  QStringLiteral("Find it in the menu bar"),
                  QStringLiteral("Look for the BV icon at the top of your screen.")),
        symbolRow(u"mic.fill", symbolSide, NamedColor::Blue, QStringLiteral("Enable voice control"),
                  QStringLiteral("Click the BV icon and select \"Enable Voice Control\".")),
        symbolRow(u"waveform", symbolSide, NamedColor::Blue, QStringLiteral("Say \"Hey Logic\" + a command"),
                  QStringLiteral("\"Hey Logic play\", \"Hey Logic record\", \"Hey Logic stop\"")),
    });
    return page;
}

QWidget* makePermissionsPage() {
    auto* page = new Page;
    page->addSpace(32);
    page->addCentred(new SymbolView(QStringLiteral("lock.shield"), 56, NamedColor::Blue));
    page->addSpace(12);
    page->addText(QStringLiteral("Grant Permissions"), TextStyle::Title, QFont::Bold, NamedColor::Primary);
    page->addSpace(4);
    page->addText(QStringLiteral("Brivandel needs three permissions to work."), TextStyle::Callout,
                  QFont::Normal, NamedColor::Secondary);
    page->addSpace(20);
    page->addRows({
        makeRow(new NumberBadge(1), QStringLiteral("Accessibility Access"),
                {detailLine(QStringLiteral("Required to send keyboard shortcuts to Logic Pro.")),
                 accessibilityPath()}),
        makeRow(new NumberBadge(2), QStringLiteral("Microphone & Speech Recognition"),
                {detailLine(QStringLiteral("macOS will prompt you automatically. Click \"OK\" to allow."))}),
        makeRow(new NumberBadge(3), QStringLiteral("Open Logic Pro"),
                {detailLine(QStringLiteral("Logic Pro must be running for commands to work."))}),
    });
    return page;
}

QWidget* makeReadyPage() {
    constexpr int symbolSide = 18;
    auto* page = new Page;
    page->addSpace(32);
    page->addCentred(new SymbolView(QStringLiteral("checkmark.circle"), 60, NamedColor::Green));
    page->addSpace(16);
    page->addText(QStringLiteral("You're All Set!"), TextStyle::Title2, QFont::Bold, NamedColor::Primary);
    page->addSpace(4);
    page->addText(QStringLiteral("Brivandel is running in your menu bar."), TextStyle::Callout, QFont::Normal,
                  NamedColor::Secondary);
    page->addSpace(28);
    page->addRows({
        symbolRow(
            u"command", symbolSide, NamedColor::Blue, QStringLiteral("View all commands"),
            QStringLiteral("Open Command Reference from the menu bar to see every available voice command.")),
        symbolRow(u"gear", symbolSide, NamedColor::Blue, QStringLiteral("Customize in Settings"),
                  QStringLiteral("Change the wake word, audio device, feedback sounds, and idle timeout.")),
        symbolRow(u"lock.shield.fill", symbolSide, NamedColor::Green, QStringLiteral("100% private"),
                  QStringLiteral("All speech recognition happens on-device. No audio ever leaves your Mac.")),
    });
    return page;
}

} // namespace brivandel
