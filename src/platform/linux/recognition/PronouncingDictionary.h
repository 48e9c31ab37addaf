#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <algorithm>

namespace brivandel {

/// The dictionary of the engine's model: a word and its phones to a line, the second and further ways to say
/// it as "word(2)". Reads all of it, some 3 MB, at once. Any one thread at a time.
class PronouncingDictionary {
public:
    /// Empty when the file cannot be read.
    explicit PronouncingDictionary(const QString& path);

    /// Calls visit(word, phones) for each line, with phones parted by spaces.
    template <typename Visit>
    void visit(Visit&& visit) const {
        for (qsizetype at = 0; at < text_.size();) {
            qsizetype end = text_.indexOf('\n', at);
            end = end < 0 ? text_.size() : end;
            const QByteArrayView line = QByteArrayView(text_).sliced(at, end - at);
            at = end + 1;
            if (const qsizetype space = line.indexOf(' '); space > 0) {
                visit(wordOf(line.first(space)), line.sliced(space + 1).trimmed());
            }
        }
    }

private:
    [[nodiscard]] static QByteArrayView wordOf(QByteArrayView entry) {
        return entry.endsWith(')') ? entry.first(std::max<qsizetype>(entry.indexOf('('), 0)) : entry;
    }

    QByteArray text_;
};

} // namespace brivandel
