#include "views/ReferenceSelection.h"

namespace brivandel {

QString ReferenceSelection::headerTitle() const {
    switch (kind_) {
    case Kind::All:
        return QStringLiteral("All Commands");
    case Kind::Category:
        return rawValue(category_);
    case Kind::Custom:
        return QStringLiteral("Custom Commands");
    }
    return {};
}

} // namespace brivandel
