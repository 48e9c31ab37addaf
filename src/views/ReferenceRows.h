#pragma once

#include "commands/CustomCommand.h"
#include "commands/VoiceCommand.h"
#include "views/ReferenceContents.h"
#include "widgets/Plate.h"

namespace brivandel {

class Badge;
class Button;
class Label;
class PhraseStrip;

/// The colour by which a category is known throughout the reference.
[[nodiscard]] NamedColor accentColor(CommandCategory category);

/// A built-in command with the triggers in force.
class CommandRow final : public Plate {
    Q_OBJECT
public:
    explicit CommandRow(QWidget* parent = nullptr);

    void setCommand(VoiceCommand command, const QStringList& triggers);

Q_SIGNALS:
    void editRequested(brivandel::VoiceCommand command);
    void copyRequested(const QString& phrase);

private:
    VoiceCommand command_{};
    PhraseStrip* triggers_;
    Label* description_;
    Badge* badge_;
    Button* pencil_;
    Button* copy_;
};

/// One of the spoken forms with a bar's number.
class BarNavCommandRow final : public Plate {
    Q_OBJECT
public:
    explicit BarNavCommandRow(QWidget* parent = nullptr);

    void setForm(const BarNavigationForm& form);

private:
    Label* phrase_;
    Label* description_;
};

/// A command of the user's own, with the script that it sends for whoever wants to see it.
class CustomCommandReferenceRow final : public Plate {
    Q_OBJECT
public:
    explicit CustomCommandReferenceRow(QWidget* parent = nullptr);

    void setCommand(const CustomCommand& command, bool showingAppleScript);

Q_SIGNALS:
    void editRequested(const QUuid& id);
    void showingAppleScriptChanged(const QUuid& id, bool showing);

private:
    void showScript(bool showing);

    QUuid id_;
    QString script_;
    Label* name_;
    PhraseStrip* triggers_;
    Label* shortcut_;
    Badge* custom_;
    Badge* disabled_;
    Button* pencil_;
    Button* toggle_;
    QWidget* scriptBox_;
    Label* scriptText_;
};

} // namespace brivandel
