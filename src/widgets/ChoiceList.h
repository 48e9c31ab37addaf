#pragma once

#include <QListWidget>

namespace brivandel {

/// A short list of texts of which one is always chosen, as beside what it chooses. Arrow keys move the
/// choice.
class ChoiceList final : public QListWidget {
    Q_OBJECT
public:
    explicit ChoiceList(QWidget* parent = nullptr);

    /// A choice with a quieter line under its title, or with a symbol before it; either may be empty.
    void addChoice(const QString& title, const QString& detail, const QString& symbol = {});

protected:
    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;

private:
    /// What is selected is current, and something is.
    void settle();
};

} // namespace brivandel
