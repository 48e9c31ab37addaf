#include "views/QuickControlView.h"

#include "listening/VoiceController.h"
#include "widgets/Button.h"
#include "widgets/Divider.h"
#include "widgets/Label.h"
#include "widgets/Plate.h"
#include "widgets/StatusDisc.h"
#include "widgets/Switch.h"
#include "widgets/SymbolView.h"
#include "widgets/Theme.h"
#include "widgets/ViewRefresh.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace brivandel {

namespace {

constexpr int panelWidth = 300;
constexpr int elementSpacing = 16;
constexpr int headerSymbolSide = 26; // what a symbol of a 24-point font measures
constexpr int statusMessageHeight = 30;
constexpr int heardLines = 2;
// A name that a user gave may be of any length; the panel stays on the screen.
constexpr int commandLines = 6;

template <typename Layout>
Layout* bare(QWidget* parent, int spacing) {
    auto* layout = new Layout(parent);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    return layout;
}

Label* caption(const QString& text = {}) {
    return new Label(text, TextStyle::Caption, NamedColor::Secondary);
}

} // namespace

QuickControlView::QuickControlView(VoiceController& controller, QWidget* parent)
    : QWidget(parent)
    , controller_(controller) {
    setFixedWidth(panelWidth);
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(defaultPadding, defaultPadding, defaultPadding, defaultPadding);
    stack->setSpacing(elementSpacing);
    stack->addWidget(makeHeader());
    stack->addWidget(new Divider);
    stack->addWidget(makeStatusBlock());
    stack->addWidget(makeCommandBox());
    stack->addWidget(makeHeardBox());
    stack->addWidget(new Divider);
    stack->addWidget(makeWakePhraseRow());
    stack->addWidget(makeListeningButton());

    disc_ = new StatusDisc(this);
    disc_->setObjectName(QStringLiteral("disc"));
    disc_->resize(disc_->sizeHint());
    disc_->lower(); // its shadows lie under the texts around it
    discPlace_->installEventFilter(this);

    refresh_ = new ViewRefresh(*this, [this] { redraw(); });
    connect(&controller_, &VoiceController::objectWillChange, refresh_, &ViewRefresh::request);
    redraw();
}

QWidget* QuickControlView::makeHeader() {
    auto* header = new QWidget;
    auto* row = bare<QHBoxLayout>(header, defaultSpacing);
    headerSymbol_ = new SymbolView(QStringLiteral("mic.fill"), headerSymbolSide, NamedColor::Gray);
    headerSymbol_->setObjectName(QStringLiteral("headerSymbol"));
    row->addWidget(headerSymbol_);
    auto* texts = bare<QVBoxLayout>(nullptr, 1);
    texts->addWidget(new Label(QStringLiteral("Brivandel"), TextStyle::Headline));
    activity_ = caption();
    activity_->setObjectName(QStringLiteral("activity"));
    texts->addWidget(activity_);
    row->addLayout(texts);
    row->addStretch();
    return header;
}

QWidget* QuickControlView::makeStatusBlock() {
    auto* block = new QWidget;
    auto* stack = bare<QVBoxLayout>(block, 8);
    discPlace_ = new QWidget;
    discPlace_->setFixedSize(StatusDisc::restingDiameter, StatusDisc::restingDiameter);
    stack->addWidget(discPlace_, 0, Qt::AlignHCenter);
    statusMessage_ = caption();
    statusMessage_->setObjectName(QStringLiteral("statusMessage"));
    statusMessage_->setAlignment(Qt::AlignCenter);
    statusMessage_->setMaximumLines(2); // what fits into the height
    statusMessage_->setFixedHeight(statusMessageHeight);
    stack->addWidget(statusMessage_);
    return block;
}

QWidget* QuickControlView::makeCommandBox() {
    commandBox_ = new Plate(NamedColor::Secondary, 0.1, 6);
    commandBox_->setObjectName(QStringLiteral("commandBox"));
    auto* stack = new QVBoxLayout(commandBox_);
    stack->setContentsMargins(8, 8, 8, 8);
    stack->setSpacing(4);
    stack->addWidget(caption(QStringLiteral("Last Command")));
    lastCommand_ = new Label(QString(), TextStyle::Monospaced);
    lastCommand_->setObjectName(QStringLiteral("lastCommand"));
    lastCommand_->setMaximumLines(commandLines);
    stack->addWidget(lastCommand_);
    return commandBox_;
}

QWidget* QuickControlView::makeHeardBox() {
    heardBox_ = new QWidget;
    heardBox_->setObjectName(QStringLiteral("heardBox"));
    auto* stack = bare<QVBoxLayout>(heardBox_, 4);
    stack->addWidget(caption(QStringLiteral("Heard")));
    lastTranscript_ = caption();
    lastTranscript_->setObjectName(QStringLiteral("lastTranscript"));
    lastTranscript_->setMaximumLines(heardLines);
    stack->addWidget(lastTranscript_);
    return heardBox_;
}

QWidget* QuickControlView::makeWakePhraseRow() {
    auto* element = new QWidget;
    auto* row = bare<QHBoxLayout>(element, defaultSpacing);
    auto* texts = bare<QVBoxLayout>(nullptr, 2);
    const auto title = QStringLiteral("Trigger Word");
    auto* heading = new Label(title, TextStyle::Caption);
    heading->setFont(textFont(TextStyle::Caption, QFont::DemiBold));
    texts->addWidget(heading);
    wakePhraseHint_ = new Label(QString(), TextStyle::Caption2, NamedColor::Secondary);
    wakePhraseHint_->setObjectName(QStringLiteral("wakePhraseHint"));
    texts->addWidget(wakePhraseHint_);
    row->addLayout(texts);
    row->addStretch();
    useWakeWord_ = new Switch;
    useWakeWord_->setObjectName(QStringLiteral("useWakeWord"));
    useWakeWord_->setAccessibleName(title);
    useWakeWord_->setControlSize(ControlSize::Small);
    connect(useWakeWord_, &Switch::switched, &controller_, &VoiceController::setUseWakeWord);
    row->addWidget(useWakeWord_);
    return element;
}

Button* QuickControlView::makeListeningButton() {
    listeningButton_ = new Button(QString(), ButtonStyle::Prominent);
    listeningButton_->setObjectName(QStringLiteral("listeningButton"));
    listeningButton_->setControlSize(ControlSize::Large);
    connect(listeningButton_, &Button::clicked, &controller_,
            [this] { controller_.setIsListening(!controller_.isListening()); });
    return listeningButton_;
}

NamedColor QuickControlView::statusColor() const {
    if (!controller_.isListening()) {
        return NamedColor::Gray;
    }
    return controller_.isAwake() ? NamedColor::Orange : NamedColor::Green;
}

QString QuickControlView::statusIcon() const {
    if (!controller_.isListening()) {
        return QStringLiteral("mic.slash.fill");
    }
    return controller_.isAwake() ? QStringLiteral("waveform") : QStringLiteral("mic.fill");
}

QString QuickControlView::statusDescription() const {
    if (!controller_.isListening()) {
        return QStringLiteral("Not listening");
    }
    return controller_.isAwake() ? QStringLiteral("Listening for a command") : QStringLiteral("Listening");
}

void QuickControlView::redraw() {
    const bool listening = controller_.isListening();
    headerSymbol_->setSymbolColor(listening ? NamedColor::Red : NamedColor::Gray);
    activity_->setText(listening ? QStringLiteral("Active") : QStringLiteral("Inactive"));
    disc_->setStatus(statusColor(), statusIcon(), statusDescription());
    disc_->setIsLive(listening);
    disc_->setLevel(static_cast<double>(controller_.audioLevel()));
    statusMessage_->setText(controller_.statusMessage());

    lastCommand_->setText(controller_.lastCommand());
    commandBox_->setVisible(!controller_.lastCommand().isEmpty());
    lastTranscript_->setText(controller_.lastTranscript());
    heardBox_->setVisible(!controller_.lastTranscript().isEmpty());

    useWakeWord_->showState(controller_.useWakeWord());
    wakePhraseHint_->setText(controller_.useWakeWord()
                                 ? QStringLiteral("Say \"Hey Logic\" before each command")
                                 : QStringLiteral("Speak commands directly"));
    listeningButton_->setText(listening ? QStringLiteral("Stop Listening")
                                        : QStringLiteral("Start Listening"));
    listeningButton_->setSymbol(listening ? QStringLiteral("stop.circle.fill")
                                          : QStringLiteral("play.circle.fill"));
    listeningButton_->setTint(listening ? NamedColor::Red : NamedColor::Blue);
}

bool QuickControlView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == discPlace_ && (event->type() == QEvent::Move || event->type() == QEvent::Resize)) {
        QRect place = disc_->rect();
        place.moveCenter(discPlace_->mapTo(this, discPlace_->rect().center()));
        disc_->setGeometry(place);
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace brivandel
