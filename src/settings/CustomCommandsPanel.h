#pragma once

#include "commands/CustomCommand.h"
#include "widgets/RowSource.h"

#include <QUuid>
#include <QWidget>

class QStackedWidget;

namespace brivandel {

class RecyclingList;
class ViewRefresh;
class VoiceController;

/// The user's own commands: a list, or what to do to have one.
class CustomCommandsPanel final : public QWidget, private RowSource {
    Q_OBJECT
public:
    /// The controller must outlive it.
    explicit CustomCommandsPanel(VoiceController& controller, QWidget* parent = nullptr);
    ~CustomCommandsPanel() override;

    /// Selects the command and shows it, if there is one of this identity.
    void reveal(const QUuid& id);

Q_SIGNALS:
    void addRequested();
    void editRequested(const brivandel::CustomCommand& command);

private:
    /// A command as it was shown: the list may change before what is to be done with it is done.
    struct Place {
        int row = 0;
        QUuid id; // may be another command's too
    };

    [[nodiscard]] QWidget* makeHeader() const;
    [[nodiscard]] QWidget* makeEmptyState();
    void showCommands();
    void requestEdit(const QUuid& id);
    void setIsEnabled(const QUuid& id, bool enabled);
    [[nodiscard]] QList<Place> placesOf(const QList<int>& rows) const;
    /// What is not at its place any more is found by its identity, unless that is another one's too.
    void deletePlaces(const QList<Place>& places);
    void showMenu(const QPoint& globalPosition, const QList<int>& rows);

    [[nodiscard]] int rowCount() const override;
    [[nodiscard]] QWidget* makeRowWidget(int kind) override;
    void fillRowWidget(QWidget& widget, int row) override;
    [[nodiscard]] QString rowName(int row) const override;

    VoiceController& controller_;
    // What the list shows: the controller's list may be a turn of the event loop ahead.
    CustomCommandList commands_;
    QStackedWidget* content_;
    RecyclingList* list_;
    ViewRefresh* refresh_;
};

} // namespace brivandel
