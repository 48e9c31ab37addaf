#include "views/CommandReferenceView.h"

#include "engine/TranscriptMatcher.h"
#include "listening/VoiceController.h"
#include "views/PhraseTrialView.h"
#include "views/ReferenceRows.h"
#include "widgets/Button.h"
#include "widgets/ChoiceList.h"
#include "widgets/Divider.h"
#include "widgets/Label.h"
#include "widgets/RecyclingList.h"
#include "widgets/SymbolView.h"
#include "widgets/TextField.h"
#include "widgets/Theme.h"
#include "widgets/ViewRefresh.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <chrono>
#include <type_traits>
#include <utility>
#include <variant>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

constexpr int sidebarWidth = 168;
constexpr int rowGap = 8;
constexpr auto copiedNoticeTime = 2s;

// The sidebar's choices, from top to bottom.
const std::vector<ReferenceSelection>& selections() {
    static const std::vector<ReferenceSelection> all = [] {
        std::vector<ReferenceSelection> choices{ReferenceSelection::all()};
        for (const auto category : allCommandCategories) {
            choices.push_back(ReferenceSelection::of(category));
        }
        choices.push_back(ReferenceSelection::custom());
        return choices;
    }();
    return all;
}

QString countText(int count) {
    return QString::number(count) + (count == 1 ? QStringLiteral(" command") : QStringLiteral(" commands"));
}

// A row of the list: what it shows, with the space around it.
QWidget* inRow(QWidget* content) {
    auto* row = new QWidget;
    auto* layout = new QVBoxLayout(row);
    layout->setContentsMargins(defaultPadding, 0, defaultPadding, rowGap);
    layout->addWidget(content);
    return row;
}

template <typename Content>
Content& contentOf(QWidget& row) {
    return *static_cast<Content*>(row.layout()->itemAt(0)->widget());
}

// The place of the item's type among the types of items.
template <typename Item, std::size_t place = 0>
constexpr int kindOf() {
    if constexpr (std::is_same_v<std::variant_alternative_t<place, ReferenceItem>, Item>) {
        return static_cast<int>(place);
    } else {
        return kindOf<Item, place + 1>();
    }
}

// Names what each kind of row is about.
struct RowName {
    QString operator()(const BarNavigationForm& form) const {
        return form.phrase + QStringLiteral(", ") + form.description;
    }
    QString operator()(VoiceCommand command) const {
        return rawValue(command) + QStringLiteral(", ") + description(command);
    }
    QString operator()(const CustomCommand& command) const {
        const QString state = command.isEnabled ? QString() : QStringLiteral(", disabled");
        return QStringLiteral("%1, %2%3").arg(command.name, command.capturedKey.displayString, state);
    }
    QString operator()(ManageButton) const { return QStringLiteral("Manage Custom Commands in Settings"); }
    QString operator()(CustomSectionHeader) const { return QStringLiteral("Custom Commands"); }
    QString operator()(NoMatches) const { return QStringLiteral("No commands match your search."); }
};

} // namespace

CommandReferenceView::CommandReferenceView(VoiceController& controller, MainQueue& mainQueue,
                                           SpokenTrial& spokenTrial, QWidget* parent)
    : QWidget(parent)
    , controller_(controller)
    , mainQueue_(mainQueue)
    , selection_(ReferenceSelection::of(CommandCategory::transport))
    , shownFor_(selection_, QString())
    , sidebar_(new ChoiceList)
    , search_(new TextField(QStringLiteral("Search commands..."), QStringLiteral("Search commands")))
    , trial_(new PhraseTrialView(controller, mainQueue, spokenTrial))
    , title_(new Label(QString(), TextStyle::Title2))
    , copied_(new Label(QString(), TextStyle::Caption, NamedColor::Secondary))
    , list_(new RecyclingList(*this, RecyclingList::Selection::None, RecyclingList::Separators::None))
    , refresh_(new ViewRefresh(*this, [this] { showItems(); })) {
    auto* panes = new QHBoxLayout(this);
    panes->setContentsMargins(0, 0, 0, 0);
    panes->setSpacing(0);
    panes->addWidget(makeSidebar());
    panes->addWidget(new Divider(Qt::Vertical));
    panes->addWidget(makeDetailPane(), 1);

    connect(&controller_, &VoiceController::customCommandsChanged, refresh_, &ViewRefresh::request);
    connect(&controller_, &VoiceController::builtInTriggerOverridesChanged, refresh_, &ViewRefresh::request);
    connect(search_, &QLineEdit::textChanged, refresh_, &ViewRefresh::request);
    connect(sidebar_, &ChoiceList::currentRowChanged, this, &CommandReferenceView::select);
    sidebar_->setCurrentRow(1);
    showItems();
}

CommandReferenceView::~CommandReferenceView() {
    delete list_; // it asks this for its rows
}

QString CommandReferenceView::searchText() const {
    return search_->text();
}

QWidget* CommandReferenceView::makeSidebar() {
    sidebar_->setObjectName(QStringLiteral("sidebar"));
    sidebar_->setAccessibleName(QStringLiteral("Categories"));
    sidebar_->addChoice(QStringLiteral("All"), {}, QStringLiteral("square.grid.2x2"));
    for (const auto category : allCommandCategories) {
        sidebar_->addChoice(rawValue(category), countText(commandCount(category)));
    }
    sidebar_->addChoice(QStringLiteral("Custom"), {}, QStringLiteral("keyboard.badge.ellipsis"));
    auto* side = new QWidget;
    side->setFixedWidth(sidebarWidth);
    auto* stack = new QVBoxLayout(side);
    stack->setContentsMargins(8, 12, 8, 8);
    stack->addWidget(sidebar_);
    return side;
}

QWidget* CommandReferenceView::makeDetailPane() {
    search_->setObjectName(QStringLiteral("search"));
    search_->setClearButtonEnabled(true);
    title_->setObjectName(QStringLiteral("title"));
    title_->setFont(textFont(TextStyle::Title2, QFont::Bold));
    copied_->setObjectName(QStringLiteral("copied"));
    copied_->setMaximumLines(1);
    copied_->hide();
    list_->setObjectName(QStringLiteral("list"));
    list_->setAccessibleName(QStringLiteral("Commands"));

    auto* pane = new QWidget;
    auto* stack = new QVBoxLayout(pane);
    stack->setContentsMargins(0, 12, 0, 0);
    stack->setSpacing(12);
    auto* searchRow = new QHBoxLayout;
    searchRow->setContentsMargins(defaultPadding, 0, defaultPadding, 0);
    searchRow->setSpacing(6);
    searchRow->addWidget(new SymbolView(QStringLiteral("magnifyingglass"), 15, NamedColor::Secondary));
    searchRow->addWidget(search_, 1);
    stack->addLayout(searchRow);
    trial_->setContentsMargins(defaultPadding, 0, defaultPadding, 0);
    stack->addWidget(trial_);
    auto* header = new QHBoxLayout;
    header->setContentsMargins(defaultPadding, 0, defaultPadding, 0);
    header->addWidget(title_);
    header->addStretch();
    header->addWidget(copied_);
    stack->addLayout(header);
    stack->addWidget(list_, 1);
    return pane;
}

void CommandReferenceView::select(int sidebarRow) {
    selection_ = selections().at(static_cast<std::size_t>(sidebarRow));
    refresh_->request();
}

void CommandReferenceView::showItems() {
    title_->setText(selection_.headerTitle());
    const std::pair nowShown(selection_, searchText());
    const bool isAnotherList = std::exchange(shownFor_, nowShown) != nowShown;
    items_ = referenceContents(controller_.customCommands(), selection_, searchText());
    list_->reload();
    if (isAnotherList && !items_.empty()) {
        list_->scrollToRow(0); // else it stays where the reader is
    }
}

void CommandReferenceView::copy(const QString& phrase) {
    QGuiApplication::clipboard()->setText(phrase);
    copied_->setText(QStringLiteral("Copied “%1”").arg(phrase));
    copied_->show();
    copiedNotice_ = mainQueue_.startTimer(copiedNoticeTime, [this] { copied_->hide(); });
}

int CommandReferenceView::rowCount() const {
    return static_cast<int>(items_.size());
}

int CommandReferenceView::rowKind(int row) const {
    return static_cast<int>(items_.at(static_cast<std::size_t>(row)).index());
}

QWidget* CommandReferenceView::makeRowWidget(int kind) {
    switch (kind) {
    case kindOf<BarNavigationForm>():
        return inRow(new BarNavCommandRow);
    case kindOf<VoiceCommand>(): {
        auto* row = new CommandRow;
        connect(row, &CommandRow::editRequested, this, &CommandReferenceView::editTriggersRequested);
        connect(row, &CommandRow::copyRequested, this, &CommandReferenceView::copy);
        return inRow(row);
    }
    case kindOf<ManageButton>(): {
        auto* button =
            new Button(QStringLiteral("Manage Custom Commands in Settings"), ButtonStyle::Prominent);
        button->setObjectName(QStringLiteral("manage"));
        button->setSymbol(QStringLiteral("gear"));
        connect(button, &Button::clicked, this, &CommandReferenceView::settingsRequested);
        return inRow(button);
    }
    case kindOf<CustomCommand>(): {
        auto* row = new CustomCommandReferenceRow;
        connect(row, &CustomCommandReferenceRow::editRequested, this,
                &CommandReferenceView::editCustomCommandRequested);
        connect(row, &CustomCommandReferenceRow::showingAppleScriptChanged, this,
                [this](const QUuid& id, bool showing) {
                    if (showing) {
                        showingAppleScript_.insert(id);
                    } else {
                        showingAppleScript_.remove(id);
                    }
                });
        return inRow(row);
    }
    case kindOf<CustomSectionHeader>(): {
        auto* header = new Label(RowName{}(CustomSectionHeader{}), TextStyle::Headline);
        return inRow(header);
    }
    default: {
        auto* nothing = new Label(RowName{}(NoMatches{}), TextStyle::Body, NamedColor::Secondary);
        nothing->setObjectName(QStringLiteral("noMatches"));
        nothing->setAlignment(Qt::AlignCenter);
        nothing->setContentsMargins(0, 2 * defaultPadding, 0, 2 * defaultPadding);
        return inRow(nothing);
    }
    }
}

void CommandReferenceView::fillRowWidget(QWidget& widget, int row) {
    const auto& item = items_.at(static_cast<std::size_t>(row));
    if (const auto* form = std::get_if<BarNavigationForm>(&item)) {
        contentOf<BarNavCommandRow>(widget).setForm(*form);
    } else if (const auto* command = std::get_if<VoiceCommand>(&item)) {
        contentOf<CommandRow>(widget).setCommand(
            *command, triggersInForce(*command, controller_.builtInTriggerOverrides()));
    } else if (const auto* custom = std::get_if<CustomCommand>(&item)) {
        contentOf<CustomCommandReferenceRow>(widget).setCommand(*custom,
                                                                showingAppleScript_.contains(custom->id));
    }
}

QString CommandReferenceView::rowName(int row) const {
    return std::visit(RowName{}, items_.at(static_cast<std::size_t>(row)));
}

} // namespace brivandel
