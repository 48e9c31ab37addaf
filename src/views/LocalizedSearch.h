#pragma once

#include <QLocale>
#include <QString>

#include <memory>

namespace brivandel {

/// Looks for one text in many: letter case does not count, nor does the way in which accented letters are
/// composed, by the rules of a language. Accents do count.
class LocalizedSearch {
public:
    explicit LocalizedSearch(QString wanted, const QLocale& locale = QLocale());
    ~LocalizedSearch();

    /// An empty text is in every one. Without the rules of the language it is letter case alone that does not
    /// count.
    [[nodiscard]] bool isIn(const QString& text) const;

private:
    struct Searcher;

    QString wanted_;
    std::unique_ptr<Searcher> searcher_;
    bool countsForNothing_ = false;
};

} // namespace brivandel
