#include "settings/BuiltInCommandsPanel.h"

#include "settings/BuiltInCommandRow.h"
#include "widgets/ChoiceList.h"
#include "widgets/Theme.h"

#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace brivandel {

namespace {

constexpr int listPadding = 8;
constexpr int minimumListWidth = 150;
constexpr int minimumCommandsWidth = 300;

} // namespace

BuiltInCommandsPanel::BuiltInCommandsPanel(VoiceController& controller, LivePhraseAdvice& advice,
                                           QWidget* parent)
    : QSplitter(Qt::Horizontal, parent)
    , controller_(controller)
    , advice_(advice)
    , categories_(new ChoiceList)
    , commands_(new QScrollArea)
    , column_(new QVBoxLayout) {
    setChildrenCollapsible(false);
    setHandleWidth(1);

    categories_->setObjectName(QStringLiteral("categories"));
    categories_->setAccessibleName(QStringLiteral("Categories"));
    for (const CommandCategory category : allCommandCategories) {
        categories_->addItem(rawValue(category));
    }
    auto* left = new QWidget;
    left->setMinimumWidth(minimumListWidth);
    auto* leftColumn = new QVBoxLayout(left);
    leftColumn->setContentsMargins(listPadding, listPadding, listPadding, listPadding);
    leftColumn->addWidget(categories_);
    addWidget(left);

    auto* content = new QWidget;
    auto* contentColumn = new QVBoxLayout(content);
    contentColumn->setContentsMargins(defaultPadding, defaultPadding, defaultPadding, defaultPadding);
    column_->setSpacing(defaultSpacing);
    contentColumn->addLayout(column_);
    contentColumn->addStretch();
    commands_->setFrameShape(QFrame::NoFrame);
    commands_->setWidgetResizable(true);
    commands_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    commands_->setFocusPolicy(Qt::NoFocus);
    commands_->setMinimumWidth(minimumCommandsWidth);
    commands_->setWidget(content);
    addWidget(commands_);
    setStretchFactor(1, 1);
    setSizes({minimumListWidth, minimumCommandsWidth});

    connect(categories_, &ChoiceList::currentRowChanged, this, &BuiltInCommandsPanel::showCategory);
    showCategory();
}

CommandCategory BuiltInCommandsPanel::selectedCategory() const {
    return allCommandCategories[static_cast<std::size_t>(categories_->currentRow())];
}

void BuiltInCommandsPanel::setSelectedCategory(CommandCategory category) {
    const auto* const place = std::ranges::find(allCommandCategories, category);
    categories_->setCurrentRow(static_cast<int>(place - allCommandCategories.begin()));
}

void BuiltInCommandsPanel::showCategory() {
    for (BuiltInCommandRow* row : std::exchange(rows_, {})) {
        column_->removeWidget(row);
        row->hide();
        row->deleteLater();
    }
    for (const VoiceCommand command : allVoiceCommands) {
        if (category(command) == selectedCategory()) {
            auto* row = new BuiltInCommandRow(command, controller_, advice_);
            column_->addWidget(row);
            rows_ += row;
        }
    }
}

void BuiltInCommandsPanel::editTriggers(VoiceCommand command) {
    setSelectedCategory(category(command));
    const auto place = std::ranges::find(rows_, command, &BuiltInCommandRow::command);
    if (place == rows_.end()) {
        return;
    }
    (*place)->setIsShowingTriggerEditor(true);
    revealing_ = *place;
    if (isVisible()) {
        reveal();
    }
}

void BuiltInCommandsPanel::showEvent(QShowEvent* event) {
    QSplitter::showEvent(event);
    if (revealing_ != nullptr) {
        // What is shown with this gets its size only afterwards.
        QMetaObject::invokeMethod(this, &BuiltInCommandsPanel::reveal, Qt::QueuedConnection);
    }
}

void BuiltInCommandsPanel::reveal() {
    if (revealing_ == nullptr) {
        return;
    }
    QWidget* content = commands_->widget();
    content->layout()->activate();
    content->resize(content->width(), content->heightForWidth(content->width()));
    commands_->ensureWidgetVisible(revealing_);
    revealing_ = nullptr;
}

} // namespace brivandel
