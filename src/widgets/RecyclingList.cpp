#include "widgets/RecyclingList.h"

#include "widgets/FocusOrder.h"
#include "widgets/RecyclingListAccess.h"
#include "widgets/RowFrame.h"

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace brivandel {

namespace {

constexpr int scrollStep = 24;
// Beside those in sight, so that Tab finds the next one.
constexpr int rowsBeyond = 1;

// One of our own: those that Qt posts itself have to reach it.
QEvent::Type layoutDue() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

} // namespace

RecyclingList::RecyclingList(RowSource& source, Selection selection, Separators separators, QWidget* parent)
    : QAbstractScrollArea(parent)
    , source_(source)
    , mode_(selection)
    , separators_(separators) {
    installRecyclingListAccess();
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    verticalScrollBar()->setSingleStep(scrollStep);
    setFocusPolicy(isSelectable() ? Qt::StrongFocus : Qt::NoFocus);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget* /*old*/, QWidget* now) { followFocus(now); });
    heights_.reset(source_.rowCount());
}

RecyclingList::~RecyclingList() {
    // A widget that goes hands the focus on when nothing is left of this class that could follow it.
    disconnect(qApp, nullptr, this, nullptr);
}

void RecyclingList::reload() {
    const int count = source_.rowCount();
    const bool isOtherCount = count != rowCount();
    {
        // A row that goes hands the focus on at once, which must not lay out the rows gone through here.
        const QScopedValueRollback changing(isLayingOut_, true);
        if (isOtherCount) {
            heights_.resize(count);
            selection_.clear();
            recycle(0, count);
        }
        for (auto entry = shown_.begin(); entry != shown_.end();) {
            const auto [row, frame] = *entry;
            entry = frame->kind() == source_.rowKind(row) ? std::next(entry) : retire(entry);
        }
        for (const auto& [row, frame] : shown_) {
            source_.fillRowWidget(*frame->content(), row);
        }
    }
    layOutRows();
    updateFrames();
    if (isOtherCount) {
        Q_EMIT selectionChanged();
    }
}

QWidget* RecyclingList::rowWidget(int row) const {
    const RowFrame* found = frame(row);
    return found == nullptr ? nullptr : found->content();
}

RowFrame* RecyclingList::frame(int row) const {
    const auto found = shown_.find(row);
    return found == shown_.end() ? nullptr : found->second;
}

QRect RecyclingList::rowRect(int row) const {
    return {0, heights_.top(row) - verticalScrollBar()->value(), viewport()->width(), heights_.height(row)};
}

int RecyclingList::rowAt(const QPoint& position) const {
    const int row = heights_.rowAt(position.y() + verticalScrollBar()->value());
    return row >= 0 && rowRect(row).contains(position) ? row : -1;
}

void RecyclingList::selectRow(int row) {
    selection_.selectOnly(row);
    selectionMoved();
}

void RecyclingList::scrollToRow(int row) {
    if (row < 0 || row >= rowCount()) {
        return;
    }
    // Rows on the way may turn out to be higher than estimated.
    for (int attempt = 0; attempt < 4; ++attempt) {
        const QRect place = rowRect(row);
        const int above = place.top();
        const int below = place.bottom() + 1 - viewport()->height();
        const int before = verticalScrollBar()->value();
        if (above < 0 || place.height() > viewport()->height()) {
            verticalScrollBar()->setValue(before + above);
        } else if (below > 0) {
            verticalScrollBar()->setValue(before + below);
        }
        layOutRows();
        if (verticalScrollBar()->value() == before && rowRect(row) == place) {
            return;
        }
    }
}

bool RecyclingList::event(QEvent* event) {
    if (event->type() == layoutDue()) {
        layoutIsDue_ = false;
        layOutRows();
        return true;
    }
    return QAbstractScrollArea::event(event);
}

void RecyclingList::rowWantsLayout() {
    if (!layoutIsDue_ && !isLayingOut_) {
        layoutIsDue_ = true;
        QCoreApplication::postEvent(this, new QEvent(layoutDue()));
    }
}

void RecyclingList::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    layOutRows();
}

void RecyclingList::showEvent(QShowEvent* event) {
    QAbstractScrollArea::showEvent(event);
    layOutRows();
}

void RecyclingList::scrollContentsBy(int /*dx*/, int /*dy*/) {
    layOutRows();
}

void RecyclingList::layOutRows() {
    // Before it has a size there is nothing to see, and everything would be measured for that.
    if (isLayingOut_ || !isVisible()) {
        return;
    }
    isLayingOut_ = true;
    if (measuredWidth_ != viewport()->width()) {
        measuredWidth_ = viewport()->width();
        heights_.reset(rowCount());
    }
    // Measuring may move what is in sight, and that bring rows into sight that are not measured.
    constexpr int attempts = 4;
    for (int attempt = 0; attempt < attempts && !layOutOnce(); ++attempt) {
    }
    isLayingOut_ = false;
}

bool RecyclingList::layOutOnce() {
    QScrollBar& bar = *verticalScrollBar();
    int offset = bar.value();
    const int first = std::max(0, heights_.rowAt(offset) - rowsBeyond);
    const bool hadRows = !shown_.empty();
    const int oldFirst = hadRows ? shown_.begin()->first : -1;
    const int oldLast = hadRows ? shown_.rbegin()->first : -1;
    int end = first;
    int beyond = 0;
    for (; end < rowCount() && beyond < rowsBeyond; ++end) {
        beyond += heights_.top(end) >= offset + viewport()->height() ? 1 : 0;
        showRow(end);
        measure(end, offset);
    }
    recycle(first, end);
    const bool stays = offset == bar.value();
    bar.setPageStep(viewport()->height());
    bar.setRange(0, std::max(0, heights_.top(rowCount()) - viewport()->height()));
    bar.setValue(offset);
    const bool isSettled = stays && bar.value() == offset;
    place(bar.value());
    if (!shown_.empty() && (oldFirst != shown_.begin()->first || oldLast != shown_.rbegin()->first)) {
        orderFocus();
        if (QAccessible::isActive()) {
            QAccessibleEvent reordered(this, QAccessible::ObjectReorder);
            QAccessible::updateAccessibility(&reordered);
        }
    }
    return isSettled;
}

void RecyclingList::measure(int row, int& offset) {
    const int height = shown_[row]->heightFor(viewport()->width());
    const int difference = height - heights_.height(row);
    const bool isAbove = heights_.top(row) + heights_.height(row) <= offset;
    const bool comesIntoSight = !heights_.isMeasured(row) && heights_.top(row) < offset;
    heights_.setHeight(row, height);
    // What is in sight stays where it is when a row above it turns out higher or lower.
    if (isAbove || comesIntoSight) {
        offset = std::max(0, offset + difference);
    }
}

void RecyclingList::place(int offset) {
    for (const auto& [row, frame] : shown_) {
        frame->setGeometry(0, heights_.top(row) - offset, viewport()->width(), heights_.height(row));
    }
}

RowFrame* RecyclingList::showRow(int row) {
    RowFrame*& frame = shown_[row];
    if (frame != nullptr) {
        return frame;
    }
    const int kind = source_.rowKind(row);
    auto& spare = spare_[kind];
    frame = spare.isEmpty() ? new RowFrame(*this, kind, source_.makeRowWidget(kind), viewport())
                            : spare.takeLast();
    frame->setRow(row);
    source_.fillRowWidget(*frame->content(), row);
    frame->show();
    return frame;
}

void RecyclingList::recycle(int firstRow, int endRow) {
    for (auto entry = shown_.begin(); entry != shown_.end();) {
        const auto [row, frame] = *entry;
        const bool isNeeded = row >= firstRow && row < endRow;
        // A row out of sight in which the keyboard is keeps it.
        const bool hasKeyboard = row < rowCount() && frame->isAncestorOf(QApplication::focusWidget());
        if (isNeeded || hasKeyboard) {
            ++entry;
            continue;
        }
        entry = retire(entry);
    }
}

RecyclingList::ShownRows::iterator RecyclingList::retire(ShownRows::iterator entry) {
    RowFrame* frame = entry->second;
    const auto next = shown_.erase(entry);
    spare_[frame->kind()] += frame;
    frame->setRow(-1);
    frame->hide(); // the last: it may move the focus, and whoever hears of that finds everything in order
    return next;
}

void RecyclingList::orderFocus() {
    QList<QWidget*> controls;
    for (const auto& [row, frame] : shown_) {
        for (QWidget* control : frame->findChildren<QWidget*>()) {
            if ((control->focusPolicy() & Qt::TabFocus) != 0) {
                controls += control;
            }
        }
    }
    orderFocusInside(*this, controls);
}

void RecyclingList::followFocus(QWidget* focused) {
    // A press gives the focus before it arrives itself: what it is meant for must not move away under it.
    const bool isByPress = QApplication::mouseButtons() != Qt::NoButton;
    if (focused == nullptr || isByPress || isLayingOut_ || !viewport()->isAncestorOf(focused)) {
        return;
    }
    for (const auto& [row, frame] : shown_) {
        if (frame->isAncestorOf(focused)) {
            scrollToRow(row);
            return;
        }
    }
}

int RecyclingList::rowForKey(int key) const {
    const int last = rowCount() - 1;
    const int page = std::max(1, viewport()->height() / std::max(1, heights_.height(0)) - 1);
    switch (key) {
    case Qt::Key_Up:
        return currentRow() < 0 ? last : currentRow() - 1;
    case Qt::Key_Down:
        return currentRow() + 1;
    case Qt::Key_PageUp:
        return currentRow() - page;
    case Qt::Key_PageDown:
        return currentRow() + page;
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    default:
        return -1;
    }
}

void RecyclingList::keyPressEvent(QKeyEvent* event) {
    // What a row's own control has no use for comes here too, and is not about the selection.
    if (!isSelectable() || rowCount() == 0 || !hasFocus()) {
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    const int key = event->key();
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        selection_.moveTo(std::clamp(rowForKey(key), 0, rowCount() - 1), event->modifiers(), false);
        selectionMoved();
        return;
    case Qt::Key_Space:
        selection_.toggleCurrent();
        selectionMoved();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (currentRow() >= 0) {
            Q_EMIT rowActivated(currentRow());
            return;
        }
        break;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (!selectedRows().isEmpty()) {
            Q_EMIT deleteRequested(selectedRows());
        }
        return;
    default:
        if (event->matches(QKeySequence::SelectAll)) {
            selection_.selectAll(rowCount());
            selectionMoved();
            return;
        }
        break;
    }
    QAbstractScrollArea::keyPressEvent(event);
}

void RecyclingList::mousePressEvent(QMouseEvent* event) {
    if (!isSelectable()) {
        QAbstractScrollArea::mousePressEvent(event);
        return;
    }
    const int row = rowAt(event->position().toPoint());
    // Nothing scrolls here: what is under the pointer stays there for the rest of the click.
    if (row < 0) {
        selection_.clear();
    } else if (event->button() == Qt::RightButton) {
        selection_.includeForMenu(row);
    } else {
        selection_.moveTo(row, event->modifiers(), true);
    }
    showSelection();
    Q_EMIT selectionChanged();
}

void RecyclingList::mouseDoubleClickEvent(QMouseEvent* event) {
    // The row of the press, which is the current one since; another may be under the pointer by now.
    const bool isOnARow = rowAt(event->position().toPoint()) >= 0 && currentRow() >= 0;
    if (isSelectable() && isOnARow && event->button() == Qt::LeftButton) {
        Q_EMIT rowActivated(currentRow());
    }
}

void RecyclingList::contextMenuEvent(QContextMenuEvent* event) {
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    if (!isSelectable() || selectedRows().isEmpty() || (isByKey && !hasFocus())) {
        return;
    }
    const QPoint position = isByKey && currentRow() >= 0
                                ? viewport()->mapToGlobal(rowRect(currentRow()).center())
                                : event->globalPos();
    Q_EMIT menuRequested(position, selectedRows());
}

void RecyclingList::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    const bool isByTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (isByTab && isSelectable() && currentRow() < 0 && rowCount() > 0) {
        // Whoever comes by keyboard sees where they are; nothing is selected by that.
        selection_.moveTo(0, Qt::ControlModifier, false);
        scrollToRow(0);
    }
    showSelection();
}

void RecyclingList::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    updateFrames();
}

void RecyclingList::selectionMoved() {
    scrollToRow(currentRow());
    showSelection();
    Q_EMIT selectionChanged();
}

void RecyclingList::showSelection() {
    updateFrames();
    if (QAccessible::isActive() && hasFocus() && currentRow() >= 0) {
        QAccessibleEvent focused(this, QAccessible::Focus);
        focused.setChild(currentRow());
        QAccessible::updateAccessibility(&focused);
    }
}

void RecyclingList::updateFrames() {
    for (const auto& [row, frame] : shown_) {
        frame->update();
    }
}

} // namespace brivandel
