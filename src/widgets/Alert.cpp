#include "widgets/Alert.h"

#include "widgets/Button.h"
#include "widgets/Label.h"

#include <QVBoxLayout>

namespace brivandel {

namespace {

constexpr int alertWidth = 260;
constexpr int padding = 20;

} // namespace

Alert::Alert(const QString& title, const QString& message, QWidget* parent) : Sheet(parent) {
    setWindowTitle(title);
    setAccessibleDescription(message);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(8);
    const auto add = [column](const QString& text, TextStyle style, const QString& objectName) {
        auto* label = new Label(text, style);
        label->setObjectName(objectName);
        label->setAlignment(Qt::AlignHCenter);
        label->setWordWrap(true);
        column->addWidget(label);
    };
    add(title, TextStyle::Headline, QStringLiteral("title"));
    add(message, TextStyle::Caption, QStringLiteral("message"));

    auto* ok = new Button(QStringLiteral("OK"), ButtonStyle::Prominent);
    ok->setObjectName(QStringLiteral("ok"));
    ok->setDefault(true);
    column->addSpacing(8);
    column->addWidget(ok);
    connect(ok, &Button::clicked, this, &QDialog::reject);
    setFixedWidth(alertWidth);
    ok->setFocus();
}

} // namespace brivandel
