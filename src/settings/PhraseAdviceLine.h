#pragma once

#include "engine/PhraseAdvice.h"

#include <QStringList>
#include <QWidget>

#include <functional>

namespace brivandel {

class Label;
class LivePhraseAdvice;
class TextField;
class ViewRefresh;

/// A quiet line under a field for a trigger phrase: what is to be known about the phrase that is being typed,
/// and while none is, which of the command's phrases are never heard. Nothing to say: it takes no room.
class PhraseAdviceLine final : public QWidget {
    Q_OBJECT
public:
    using Phrases = std::function<QStringList()>;

    /// phrases: those that the command has already. The advice must outlive it.
    PhraseAdviceLine(LivePhraseAdvice& advice, TextField& field, PhraseOwner owner, Phrases phrases,
                     QWidget* parent = nullptr);

    /// The command's phrases have changed.
    void refresh();

private:
    void showAdvice();
    [[nodiscard]] QStringList texts();

    LivePhraseAdvice& advice_;
    TextField& field_;
    PhraseOwner owner_;
    Phrases phrases_;
    Label* text_;
    ViewRefresh* refresh_;
};

} // namespace brivandel
