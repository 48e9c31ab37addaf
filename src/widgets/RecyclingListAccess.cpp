#include "widgets/RecyclingListAccess.h"

#include "widgets/RecyclingList.h"
#include "widgets/RowFrame.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>

namespace brivandel {

namespace {

QAccessible::State stateOfRow(const RecyclingList& list, int row) {
    QAccessible::State state;
    state.focusable = list.isSelectable();
    state.selectable = list.isSelectable();
    state.multiSelectable = list.isSelectable();
    state.selected = list.isSelected(row);
    state.focused = list.hasFocus() && list.currentRow() == row;
    state.offscreen = !list.viewport()->rect().intersects(list.rowRect(row));
    return state;
}

QRect screenRect(const RecyclingList& list, int row) {
    const QRect place = list.rowRect(row);
    return {list.viewport()->mapToGlobal(place.topLeft()), place.size()};
}

/// A row that has no widget.
class UnseenRow final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    UnseenRow(RecyclingList& list, int row) : list_(list), row_(row) {}

    [[nodiscard]] int row() const { return row_; }

    [[nodiscard]] bool isValid() const override { return row_ < list_.rowCount(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override { return list_.window()->windowHandle(); }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(&list_);
    }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text text) const override {
        return text == QAccessible::Name && isValid() ? list_.source().rowName(row_) : QString();
    }
    void setText(QAccessible::Text /*text*/, const QString& /*value*/) override {}
    [[nodiscard]] QRect rect() const override { return screenRect(list_, row_); }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QAccessible::State state() const override { return stateOfRow(list_, row_); }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override { return {setFocusAction()}; }
    /// Brings the row into sight, where it has its controls.
    void doAction(const QString& actionName) override {
        if (actionName != setFocusAction() || !isValid()) {
            return;
        }
        list_.setFocus();
        if (list_.isSelectable()) {
            list_.selectRow(row_);
        } else {
            list_.scrollToRow(row_);
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*actionName*/) const override {
        return {};
    }

private:
    RecyclingList& list_;
    int row_;
};

class SeenRow final : public QAccessibleWidget {
public:
    explicit SeenRow(RowFrame* frame) : QAccessibleWidget(frame, QAccessible::ListItem) {}

    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(&frame().list());
    }
    [[nodiscard]] QString text(QAccessible::Text text) const override {
        const int row = frame().row();
        return text == QAccessible::Name && row >= 0 ? frame().list().source().rowName(row)
                                                     : QAccessibleWidget::text(text);
    }
    [[nodiscard]] QAccessible::State state() const override {
        const int row = frame().row();
        if (row >= 0) {
            return stateOfRow(frame().list(), row);
        }
        QAccessible::State state;
        state.invisible = true;
        return state;
    }

private:
    [[nodiscard]] RowFrame& frame() const { return *static_cast<RowFrame*>(widget()); }
};

class ListInterface final : public QAccessibleWidget {
public:
    explicit ListInterface(RecyclingList* list) : QAccessibleWidget(list, QAccessible::List) {}
    ~ListInterface() override {
        for (const QAccessible::Id id : std::as_const(unseen_)) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    [[nodiscard]] int childCount() const override { return list().rowCount(); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= list().rowCount()) {
            return nullptr;
        }
        if (auto* frame = list().frame(index)) {
            return QAccessible::queryAccessibleInterface(frame);
        }
        auto& id = unseen_[index];
        if (id == 0) {
            id = QAccessible::registerAccessibleInterface(new UnseenRow(list(), index));
        }
        return QAccessible::accessibleInterface(id);
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        if (const auto* unseen = dynamic_cast<const UnseenRow*>(child)) {
            return unseen->row();
        }
        const auto* frame = child == nullptr ? nullptr : qobject_cast<RowFrame*>(child->object());
        return frame == nullptr ? -1 : frame->row();
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        return child(list().rowAt(list().viewport()->mapFromGlobal(QPoint(x, y))));
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        return list().hasFocus() ? child(list().currentRow()) : QAccessibleWidget::focusChild();
    }

private:
    [[nodiscard]] RecyclingList& list() const { return *static_cast<RecyclingList*>(widget()); }

    mutable QHash<int, QAccessible::Id> unseen_;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    if (auto* list = qobject_cast<RecyclingList*>(object)) {
        return new ListInterface(list);
    }
    if (auto* frame = qobject_cast<RowFrame*>(object)) {
        return new SeenRow(frame);
    }
    return nullptr;
}

} // namespace

void installRecyclingListAccess() {
    QAccessible::installFactory(makeInterface); // a second time changes nothing
}

} // namespace brivandel
