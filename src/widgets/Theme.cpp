#include "widgets/Theme.h"

#include "widgets/TextStyle.h"
#include "widgets/ThemeStyle.h"

#include <QApplication>

namespace brivandel {

void applyTheme(QApplication& application, Appearance appearance) {
    if (qobject_cast<ThemeStyle*>(QApplication::style()) == nullptr) {
        QApplication::setStyle(new ThemeStyle); // the application owns it
        QApplication::setFont(textFont(TextStyle::Body));
    }
    application.setPalette(paletteFor(appearance));
}

} // namespace brivandel
