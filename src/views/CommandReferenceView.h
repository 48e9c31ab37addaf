#pragma once

#include "commands/VoiceCommand.h"
#include "platform/MainQueue.h"
#include "views/ReferenceContents.h"
#include "views/ReferenceSelection.h"
#include "widgets/RowSource.h"

#include <QSet>
#include <QUuid>
#include <QWidget>

#include <memory>
#include <utility>
#include <vector>

namespace brivandel {

class ChoiceList;
class Label;
class PhraseTrialView;
class RecyclingList;
class SpokenTrial;
class TextField;
class ViewRefresh;
class VoiceController;

/// Every command that the program understands, by category, with a search. Reads the controller and changes
/// nothing in it.
class CommandReferenceView final : public QWidget, private RowSource {
    Q_OBJECT
public:
    /// All three must outlive it.
    CommandReferenceView(VoiceController& controller, MainQueue& mainQueue, SpokenTrial& spokenTrial,
                         QWidget* parent = nullptr);
    ~CommandReferenceView() override;

    [[nodiscard]] const ReferenceSelection& selection() const { return selection_; }
    [[nodiscard]] QString searchText() const;
    /// What the list shows.
    [[nodiscard]] const std::vector<ReferenceItem>& items() const { return items_; }

Q_SIGNALS:
    /// The user wants to manage the custom commands, in the settings.
    void settingsRequested();
    /// The user wants to change what is said for the command, in the settings.
    void editTriggersRequested(brivandel::VoiceCommand command);
    /// The user wants to change the custom command, in the settings.
    void editCustomCommandRequested(const QUuid& id);

private:
    [[nodiscard]] QWidget* makeSidebar();
    [[nodiscard]] QWidget* makeDetailPane();
    void select(int sidebarRow);
    void showItems();
    void copy(const QString& phrase);

    [[nodiscard]] int rowCount() const override;
    [[nodiscard]] int rowKind(int row) const override;
    [[nodiscard]] QWidget* makeRowWidget(int kind) override;
    void fillRowWidget(QWidget& widget, int row) override;
    [[nodiscard]] QString rowName(int row) const override;

    VoiceController& controller_;
    MainQueue& mainQueue_;
    ReferenceSelection selection_;
    std::vector<ReferenceItem> items_;
    std::pair<ReferenceSelection, QString> shownFor_;
    QSet<QUuid> showingAppleScript_;
    ChoiceList* sidebar_;
    TextField* search_;
    PhraseTrialView* trial_;
    Label* title_;
    Label* copied_;
    RecyclingList* list_;
    ViewRefresh* refresh_;
    std::unique_ptr<Timer> copiedNotice_;
};

} // namespace brivandel
