#pragma once

#include "widgets/RowHeights.h"
#include "widgets/RowSelection.h"
#include "widgets/RowSource.h"

#include <QAbstractScrollArea>
#include <QHash>
#include <QList>

#include <map>

namespace brivandel {

class RowFrame;

/// A long list of widgets that opens at once and scrolls smoothly: only rows that can be seen have a widget,
/// and the widgets are used again. For assistive technology and the keyboard every row is there.
///
/// Rows are as high as they ask to be. The row's widget is filled anew whenever it comes into sight, so what
/// is to stay (that a row is unfolded, say) belongs to the source.
class RecyclingList final : public QAbstractScrollArea {
    Q_OBJECT
public:
    enum class Selection {
        None,
        Extended, ///< any number of rows, by click and keyboard
    };
    enum class Separators { None, BetweenRows };

    /// The source must outlive it.
    RecyclingList(RowSource& source, Selection selection, Separators separators, QWidget* parent = nullptr);
    ~RecyclingList() override;

    /// The source's rows have changed: those in sight are filled again. The list stays where it is; a
    /// selection is dropped when the number of rows is another.
    void reload();
    void scrollToRow(int row);

    [[nodiscard]] int rowCount() const { return heights_.rowCount(); }
    [[nodiscard]] const RowSource& source() const { return source_; }
    /// None for a row that has none just now.
    [[nodiscard]] QWidget* rowWidget(int row) const;
    /// In coordinates of the viewport; of a row never seen yet the place is estimated.
    [[nodiscard]] QRect rowRect(int row) const;
    /// -1 where no row is; coordinates of the viewport.
    [[nodiscard]] int rowAt(const QPoint& position) const;

    [[nodiscard]] bool isSelectable() const { return mode_ == Selection::Extended; }
    /// Where the keyboard is; -1 for nowhere.
    [[nodiscard]] int currentRow() const { return selection_.currentRow(); }
    [[nodiscard]] QList<int> selectedRows() const { return selection_.rows(); }
    [[nodiscard]] bool isSelected(int row) const { return selection_.isSelected(row); }
    /// It alone, and shows it.
    void selectRow(int row);

    [[nodiscard]] RowFrame* frame(int row) const;

Q_SIGNALS:
    void selectionChanged();
    /// By Return or a double click.
    void rowActivated(int row);
    /// By the Delete key.
    void deleteRequested(const QList<int>& rows);
    /// A context menu is wanted for these rows.
    void menuRequested(const QPoint& globalPosition, const QList<int>& rows);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    friend class RowFrame;
    using ShownRows = std::map<int, RowFrame*>;

    void rowWantsLayout();
    void layOutRows();
    [[nodiscard]] bool layOutOnce();
    void measure(int row, int& offset);
    void place(int offset);
    RowFrame* showRow(int row);
    void recycle(int firstRow, int endRow);
    ShownRows::iterator retire(ShownRows::iterator entry);
    void orderFocus();
    void followFocus(QWidget* focused);
    [[nodiscard]] int rowForKey(int key) const;
    void selectionMoved();
    void showSelection();
    void updateFrames();

    RowSource& source_;
    Selection mode_;
    Separators separators_;
    RowHeights heights_;
    RowSelection selection_;
    ShownRows shown_;
    QHash<int, QList<RowFrame*>> spare_; // by kind
    int measuredWidth_ = -1;
    bool isLayingOut_ = false;
    bool layoutIsDue_ = false;
};

} // namespace brivandel
