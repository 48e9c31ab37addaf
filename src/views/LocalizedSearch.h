#pragma once

#include <QLocale>
#include <QString>

#include <memory>

namespace brivandel {

/// Looks for one text in many: letter case does not count, nor does the way in which accented letters are
/// composed, by the rules of a language. Accents do count.
class LocalizedSearch {
public:
    explicit LocalizedSearch(const QString& wanted, const QLocale& locale = QLocale());
    ~LocalizedSearch();

    /// An empty text is in every one.
    [[nodiscard]] bool isIn(const QString& text) const;

private:
    struct Searcher;

    QString wanted_;
    std::unique_ptr<Searcher> searcher_;
};

} // namespace brivandel
