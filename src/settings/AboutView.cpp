#include "settings/AboutView.h"

#include "widgets/Divider.h"
#include "widgets/Label.h"
#include "widgets/ResourceImage.h"
#include "widgets/SymbolView.h"
#include "widgets/Theme.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace brivandel {

namespace {

constexpr int topSpace = 16;
constexpr int logoHeight = 120;
constexpr int dividerWidth = 200;
constexpr int dividerPadding = 12;
constexpr int privacyWidth = 360;
constexpr int shieldSide = 15;

void addDivider(QVBoxLayout& column) {
    auto* line = new Divider;
    line->setFixedWidth(dividerWidth);
    column.addSpacing(dividerPadding);
    column.addWidget(line, 0, Qt::AlignHCenter);
    column.addSpacing(dividerPadding);
}

void addLogo(QVBoxLayout& column) {
    if (auto* logo = ResourceImage::make(QStringLiteral("logo-square"), logoHeight)) {
        logo->setObjectName(QStringLiteral("logo"));
        column.addWidget(logo, 0, Qt::AlignHCenter);
    }
}

QLayout* makePrivacyTitle() {
    auto* title = new Label(QStringLiteral("Your Privacy is Protected"), TextStyle::Callout);
    title->setFont(textFont(TextStyle::Callout, QFont::DemiBold));
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    row->addStretch();
    row->addWidget(new SymbolView(QStringLiteral("lock.shield.fill"), shieldSide, NamedColor::Green));
    row->addWidget(title);
    row->addStretch();
    return row;
}

} // namespace

AboutView::AboutView(QWidget* parent) : QScrollArea(parent) {
    setAccessibleName(QStringLiteral("About"));
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(defaultPadding, 0, defaultPadding, 0);
    column->setSpacing(0);
    const auto addText = [column](const QString& text, TextStyle style, NamedColor color) {
        auto* label = new Label(text, style, color);
        label->setAlignment(Qt::AlignHCenter);
        column->addWidget(label, 0, Qt::AlignHCenter);
        return label;
    };

    column->addSpacing(topSpace);
    addLogo(*column);
    column->addSpacing(4);
    addText(QStringLiteral("Version 1.4"), TextStyle::Caption, NamedColor::Secondary);
    column->addSpacing(12);
    addDivider(*column);
    addText(QStringLiteral("Hands-free recording for solo musicians"), TextStyle::Body, NamedColor::Primary);
    column->addSpacing(4);
    addText(QStringLiteral("Control Logic Pro with voice commands while you play"), TextStyle::Caption,
            NamedColor::Secondary);
    addDivider(*column);
    column->addLayout(makePrivacyTitle());
    column->addSpacing(6);
    auto* privacy =
        addText(QStringLiteral(
                    "All speech recognition is performed on-device by Apple's Speech framework. No audio is "
                    "ever recorded, stored, or transmitted off your computer. This app collects zero user "
                    "data."),
                TextStyle::Caption, NamedColor::Secondary);
    privacy->setWordWrap(true);
    // A label in a layout is given the height for the layout's width, not for its own.
    privacy->setFixedSize(privacyWidth, privacy->heightForWidth(privacyWidth));
    addDivider(*column);
    column->addStretch();
    setWidget(content);
}

} // namespace brivandel
