#include "engine/BarNavigation.h"

namespace brivandel {

QString barNavigationScript(const BarNavigation& navigation) {
    // Key code 44 is the slash key, 36 is Return.
    QString script = QStringLiteral("tell application \"Logic Pro\" to activate\n"
                                    "delay 0.3\n"
                                    "tell application \"System Events\"\n"
                                    "    tell process \"Logic Pro\"\n"
                                    "        key code 44\n"
                                    "        delay 0.5\n"
                                    "        keystroke \"") +
                     QString::number(navigation.bar) +
                     QStringLiteral("\"\n"
                                    "        delay 0.1\n"
                                    "        key code 36\n"
                                    "    end tell\n"
                                    "end tell");
    if (navigation.thenPlay) {
        script += QStringLiteral("\ndelay 0.2\nkeystroke \" \"");
    }
    return script;
}

QString barNavigationLabel(const BarNavigation& navigation) {
    return (navigation.thenPlay ? QStringLiteral("Play from bar ") : QStringLiteral("Go to bar ")) +
           QString::number(navigation.bar);
}

} // namespace brivandel
