#include "settings/PhraseAdviceLine.h"

#include "listening/LivePhraseAdvice.h"
#include "settings/TriggerPhrase.h"
#include "widgets/Label.h"
#include "widgets/SymbolView.h"
#include "widgets/TextField.h"
#include "widgets/ViewRefresh.h"

#include <QHBoxLayout>

#include <algorithm>
#include <utility>

namespace brivandel {

namespace {

constexpr qsizetype mostTexts = 2;
constexpr int mostLines = 3;
constexpr int symbolSide = 12;

} // namespace

PhraseAdviceLine::PhraseAdviceLine(LivePhraseAdvice& advice, TextField& field, PhraseOwner owner,
                                   Phrases phrases, QWidget* parent)
    : QWidget(parent)
    , advice_(advice)
    , field_(field)
    , owner_(owner)
    , phrases_(std::move(phrases))
    , text_(new Label(QString(), TextStyle::Caption2, NamedColor::Secondary))
    , refresh_(new ViewRefresh(field, [this] { showAdvice(); })) { // the line itself is hidden when empty
    text_->setObjectName(QStringLiteral("advice"));
    text_->setWordWrap(true);
    text_->setMaximumLines(mostLines);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(new SymbolView(QStringLiteral("info.circle"), symbolSide, NamedColor::Secondary), 0,
                   Qt::AlignTop);
    row->addWidget(text_, 1);
    connect(&field, &TextField::textChanged, refresh_, &ViewRefresh::request);
    connect(&advice, &LivePhraseAdvice::changed, refresh_, &ViewRefresh::request);
    hide();
    refresh_->request();
}

void PhraseAdviceLine::refresh() {
    refresh_->request();
}

QStringList PhraseAdviceLine::texts() {
    QStringList texts;
    if (const QString typed = triggerPhrase(field_.text()); !typed.isEmpty()) {
        for (const PhraseAdvice& advice : advice_.advice(typed, owner_)) {
            texts += adviceText(advice);
        }
        return texts;
    }
    for (const QString& phrase : phrases_()) {
        for (const PhraseAdvice& advice : advice_.advice(phrase, owner_)) {
            if (isSerious(advice)) {
                texts += QStringLiteral("“%1”: %2").arg(phrase, adviceText(advice));
            }
        }
    }
    return texts;
}

void PhraseAdviceLine::showAdvice() {
    const QStringList all = texts();
    const QStringList advice = all.first(std::min(all.size(), mostTexts));
    text_->setText(advice.join(u'\n'));
    setHidden(advice.isEmpty());
}

} // namespace brivandel
