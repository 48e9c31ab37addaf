#include "cli/TextInput.h"

#include <QFile>

#include <istream>
#include <iterator>

namespace brivandel {

std::variant<std::string, TextInputError> readTextInput(const std::string& file, const Terminal& terminal) {
    if (file == "-") {
        std::string text{std::istreambuf_iterator<char>(terminal.in), std::istreambuf_iterator<char>()};
        return text;
    }
    QFile source(QString::fromStdString(file));
    if (!source.open(QIODevice::ReadOnly)) {
        return TextInputError{source.errorString().toStdString()};
    }
    return source.readAll().toStdString();
}

} // namespace brivandel
