#pragma once

#include "widgets/Colors.h"

#include <QString>
#include <QWidget>

namespace brivandel {

class Button;
class Label;
class StatusDisc;
class Switch;
class SymbolView;
class ViewRefresh;
class VoiceController;

/// The content of the status item's popover: whether voice control is on, what was heard and done last, and
/// the two switches a musician needs between takes. Holds no state of its own.
class QuickControlView final : public QWidget {
    Q_OBJECT
public:
    /// The controller must outlive it.
    explicit QuickControlView(VoiceController& controller, QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QWidget* makeHeader();
    [[nodiscard]] QWidget* makeStatusBlock();
    [[nodiscard]] QWidget* makeCommandBox();
    [[nodiscard]] QWidget* makeHeardBox();
    [[nodiscard]] QWidget* makeWakePhraseRow();
    [[nodiscard]] Button* makeListeningButton();
    [[nodiscard]] NamedColor statusColor() const;
    [[nodiscard]] QString statusIcon() const;
    [[nodiscard]] QString statusDescription() const;
    void redraw();

    VoiceController& controller_;
    SymbolView* headerSymbol_ = nullptr;
    Label* activity_ = nullptr;
    QWidget* discPlace_ = nullptr; // what the disc takes in the layout; its shadows reach beyond
    StatusDisc* disc_ = nullptr;
    Label* statusMessage_ = nullptr;
    QWidget* commandBox_ = nullptr;
    Label* lastCommand_ = nullptr;
    QWidget* heardBox_ = nullptr;
    Label* lastTranscript_ = nullptr;
    Label* wakePhraseHint_ = nullptr;
    Switch* useWakeWord_ = nullptr;
    Button* listeningButton_ = nullptr;
    ViewRefresh* refresh_ = nullptr;
};

} // namespace brivandel
