#include "settings/CustomCommandsPanel.h"

#include "listening/VoiceController.h"
#include "settings/CustomCommandSettingsRow.h"
#include "widgets/Button.h"
#include "widgets/Divider.h"
#include "widgets/Label.h"
#include "widgets/RecyclingList.h"
#include "widgets/SymbolView.h"
#include "widgets/Theme.h"
#include "widgets/ViewRefresh.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace brivandel {

namespace {

constexpr int emptySymbolSide = 40;
constexpr int emptyTextWidth = 260;

} // namespace

CustomCommandsPanel::CustomCommandsPanel(VoiceController& controller, QWidget* parent)
    : QWidget(parent)
    , controller_(controller)
    , commands_(controller.customCommands())
    , content_(new QStackedWidget)
    , list_(new RecyclingList(*this, RecyclingList::Selection::Extended,
                              RecyclingList::Separators::BetweenRows))
    , refresh_(new ViewRefresh(*this, [this] { showCommands(); })) {
    list_->setObjectName(QStringLiteral("customCommands"));
    list_->setAccessibleName(QStringLiteral("Custom Commands"));
    content_->addWidget(makeEmptyState());
    content_->addWidget(list_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(makeHeader());
    column->addWidget(new Divider);
    column->addWidget(content_, 1);

    connect(list_, &RecyclingList::rowActivated, this,
            [this](int row) { requestEdit(commands_.at(row).id); });
    connect(list_, &RecyclingList::deleteRequested, this,
            [this](const QList<int>& rows) { deletePlaces(placesOf(rows)); });
    connect(list_, &RecyclingList::menuRequested, this, &CustomCommandsPanel::showMenu);
    connect(&controller, &VoiceController::customCommandsChanged, refresh_, &ViewRefresh::request);
    showCommands();
}

CustomCommandsPanel::~CustomCommandsPanel() {
    delete list_; // it asks this for its rows
}

QWidget* CustomCommandsPanel::makeHeader() const {
    auto* add = new Button(QStringLiteral("Add Command"), ButtonStyle::Prominent);
    add->setObjectName(QStringLiteral("addCommand"));
    add->setSymbol(QStringLiteral("plus"));
    connect(add, &Button::clicked, this, &CustomCommandsPanel::addRequested);
    auto* header = new QWidget;
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(defaultPadding, defaultPadding, defaultPadding, defaultPadding);
    row->addWidget(new Label(QStringLiteral("Custom Commands"), TextStyle::Headline));
    row->addStretch();
    row->addWidget(add);
    return header;
}

QWidget* CustomCommandsPanel::makeEmptyState() {
    auto* empty = new QWidget;
    empty->setObjectName(QStringLiteral("emptyState"));
    auto* text =
        new Label(QStringLiteral("Add a command to map a voice phrase to any Logic Pro keyboard shortcut."),
                  TextStyle::Caption, NamedColor::Secondary);
    text->setAlignment(Qt::AlignHCenter);
    text->setWordWrap(true);
    // A label in a layout is given the height for the layout's width, not for its own.
    text->setFixedSize(emptyTextWidth, text->heightForWidth(emptyTextWidth));
    auto* column = new QVBoxLayout(empty);
    column->setSpacing(defaultSpacing);
    column->addStretch();
    column->addWidget(
        new SymbolView(QStringLiteral("keyboard.badge.ellipsis"), emptySymbolSide, NamedColor::Secondary), 0,
        Qt::AlignHCenter);
    column->addWidget(
        new Label(QStringLiteral("No custom commands yet"), TextStyle::Headline, NamedColor::Secondary), 0,
        Qt::AlignHCenter);
    column->addWidget(text, 0, Qt::AlignHCenter);
    column->addStretch();
    return empty;
}

void CustomCommandsPanel::showCommands() {
    commands_ = controller_.customCommands();
    content_->setCurrentIndex(commands_.isEmpty() ? 0 : 1);
    list_->reload();
}

void CustomCommandsPanel::reveal(const QUuid& id) {
    refresh_->flush();
    const auto place = std::ranges::find(commands_, id, &CustomCommand::id);
    if (place != commands_.end()) {
        list_->selectRow(static_cast<int>(place - commands_.begin()));
    }
}

void CustomCommandsPanel::requestEdit(const QUuid& id) {
    const auto& commands = controller_.customCommands();
    const auto place = std::ranges::find(commands, id, &CustomCommand::id);
    if (place != commands.end()) {
        Q_EMIT editRequested(*place);
    }
}

void CustomCommandsPanel::setIsEnabled(const QUuid& id, bool enabled) {
    CustomCommandList commands = controller_.customCommands();
    const auto place = std::ranges::find(commands, id, &CustomCommand::id);
    if (place != commands.end()) {
        place->isEnabled = enabled;
        controller_.setCustomCommands(commands); // in force at once, and stored with the next other change
    }
}

QList<CustomCommandsPanel::Place> CustomCommandsPanel::placesOf(const QList<int>& rows) const {
    QList<Place> places;
    for (const int row : rows) {
        places += Place{.row = row, .id = commands_.at(row).id};
    }
    return places;
}

void CustomCommandsPanel::deletePlaces(const QList<Place>& places) {
    CustomCommandList commands = controller_.customCommands();
    const CustomCommandList before = commands;
    for (qsizetype index = places.size() - 1; index >= 0; --index) {
        const auto& [row, id] = places.at(index);
        if (row < commands.size() && commands.at(row).id == id) {
            commands.removeAt(row);
        } else if (std::ranges::count(commands, id, &CustomCommand::id) == 1) {
            commands.erase(std::ranges::find(commands, id, &CustomCommand::id));
        }
    }
    if (commands == before) {
        return;
    }
    controller_.setCustomCommands(commands);
    controller_.saveCustomCommands();
    refresh_->flush();
    if (!commands_.isEmpty()) {
        list_->selectRow(std::min(places.first().row, static_cast<int>(commands_.size()) - 1));
    }
}

void CustomCommandsPanel::showMenu(const QPoint& globalPosition, const QList<int>& rows) {
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("rowMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (rows.size() == 1) {
        connect(menu->addAction(QStringLiteral("Edit…")), &QAction::triggered, this,
                [this, id = commands_.at(rows.first()).id] { requestEdit(id); });
    }
    connect(menu->addAction(QStringLiteral("Delete")), &QAction::triggered, this,
            [this, places = placesOf(rows)] { deletePlaces(places); });
    menu->popup(globalPosition);
}

int CustomCommandsPanel::rowCount() const {
    return static_cast<int>(commands_.size());
}

QWidget* CustomCommandsPanel::makeRowWidget(int /*kind*/) {
    auto* row = new CustomCommandSettingsRow;
    connect(row, &CustomCommandSettingsRow::enabledChanged, this, &CustomCommandsPanel::setIsEnabled);
    connect(row, &CustomCommandSettingsRow::editRequested, this, &CustomCommandsPanel::requestEdit);
    return row;
}

void CustomCommandsPanel::fillRowWidget(QWidget& widget, int row) {
    static_cast<CustomCommandSettingsRow&>(widget).setCommand(commands_.at(row));
}

QString CustomCommandsPanel::rowName(int row) const {
    const CustomCommand& command = commands_.at(row);
    const QString state = command.isEnabled ? QString() : QStringLiteral(", disabled");
    return QStringLiteral("%1, %2%3").arg(command.name, command.capturedKey.displayString, state);
}

} // namespace brivandel
