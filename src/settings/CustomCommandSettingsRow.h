#pragma once

#include "commands/CustomCommand.h"

#include <QWidget>

namespace brivandel {

class Button;
class Label;
class PhraseStrip;
class Switch;

/// One custom command in the list, with its switch and the way to its editor. Shows one command after another
/// as the list scrolls.
class CustomCommandSettingsRow final : public QWidget {
    Q_OBJECT
public:
    explicit CustomCommandSettingsRow(QWidget* parent = nullptr);

    void setCommand(const CustomCommand& command);

Q_SIGNALS:
    void enabledChanged(const QUuid& id, bool enabled);
    void editRequested(const QUuid& id);

private:
    QUuid id_;
    Switch* enabled_;
    Label* name_;
    PhraseStrip* triggers_;
    Label* key_;
    Button* pencil_;
};

} // namespace brivandel
