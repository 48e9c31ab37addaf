#pragma once

#include <QString>

class QWidget;

namespace brivandel {

/// What a long list shows. A list asks for as many row widgets as can be seen and fills them again and again.
class RowSource {
public:
    virtual ~RowSource() = default;

    [[nodiscard]] virtual int rowCount() const = 0;
    /// Rows of one kind share their widgets.
    [[nodiscard]] virtual int rowKind(int /*row*/) const { return 0; }
    /// A widget for any row of the kind; the list owns it.
    [[nodiscard]] virtual QWidget* makeRowWidget(int kind) = 0;
    /// Makes the widget show this row, whatever it has shown before.
    virtual void fillRowWidget(QWidget& widget, int row) = 0;
    /// What assistive technology calls the row, whether it has a widget or not.
    [[nodiscard]] virtual QString rowName(int row) const = 0;
};

} // namespace brivandel
