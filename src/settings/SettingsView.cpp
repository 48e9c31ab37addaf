#include "settings/SettingsView.h"

#include "listening/VoiceController.h"
#include "settings/AboutView.h"
#include "settings/AudioSettingsView.h"
#include "settings/CommandsSettingsView.h"
#include "settings/GeneralSettingsView.h"
#include "widgets/Divider.h"
#include "widgets/SymbolTabBar.h"

#include <QKeyEvent>
#include <QShowEvent>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace brivandel {

namespace {

constexpr int side = 500;
constexpr int tabBarPadding = 6;

} // namespace

SettingsView::SettingsView(VoiceController& controller, const KeyboardLayout& layout,
                           LivePhraseAdvice& advice, QWidget* parent)
    : QWidget(parent)
    , tabs_(new SymbolTabBar)
    , pages_(new QStackedWidget)
    , commands_(new CommandsSettingsView(controller, layout, advice))
    , audio_(new AudioSettingsView(controller))
    , controller_(controller) {
    setFixedSize(side, side);
    tabs_->setObjectName(QStringLiteral("tabs"));
    tabs_->setAccessibleName(QStringLiteral("Settings"));
    const auto addTab = [this](const QString& title, const QString& symbol, QWidget* page) {
        pages_->addWidget(page);
        tabs_->addSymbolTab(symbol, title);
    };
    addTab(QStringLiteral("General"), QStringLiteral("gear"), new GeneralSettingsView(controller));
    addTab(QStringLiteral("Commands"), QStringLiteral("list.bullet"), commands_);
    addTab(QStringLiteral("Audio"), QStringLiteral("waveform"), audio_);
    addTab(QStringLiteral("About"), QStringLiteral("info.circle"), new AboutView);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addSpacing(tabBarPadding);
    column->addWidget(tabs_, 0, Qt::AlignHCenter);
    column->addSpacing(tabBarPadding);
    column->addWidget(new Divider);
    column->addWidget(pages_, 1);
    connect(tabs_, &SymbolTabBar::currentChanged, pages_, &QStackedWidget::setCurrentIndex);
}

int SettingsView::selectedTab() const {
    return tabs_->currentIndex();
}

void SettingsView::setSelectedTab(int tab) {
    tabs_->setCurrentIndex(tab);
}

void SettingsView::openSettingsCommandsTab() {
    setSelectedTab(Commands);
}

void SettingsView::editTriggers(VoiceCommand command) {
    openSettingsCommandsTab();
    commands_->editTriggers(command);
}

void SettingsView::editCustomCommand(const QUuid& id) {
    openSettingsCommandsTab();
    commands_->editCustomCommand(id);
}

void SettingsView::showEvent(QShowEvent* event) {
    // A window that comes back from the task bar was open all the time.
    if (!event->spontaneous()) {
        audio_->setAvailableDevices(controller_.getAvailableAudioDevices());
    }
    QWidget::showEvent(event);
}

void SettingsView::keyPressEvent(QKeyEvent* event) {
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const bool next = event->key() == Qt::Key_Tab || event->key() == Qt::Key_PageDown;
    const bool previous = event->key() == Qt::Key_Backtab || event->key() == Qt::Key_PageUp;
    if (!control || (!next && !previous)) {
        QWidget::keyPressEvent(event);
        return;
    }
    const int count = tabs_->count();
    setSelectedTab((selectedTab() + (next ? 1 : count - 1)) % count);
}

} // namespace brivandel
