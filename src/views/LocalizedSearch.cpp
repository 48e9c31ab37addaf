#include "views/LocalizedSearch.h"

#include <unicode/ucol.h>
#include <unicode/usearch.h>

#include <utility>

namespace brivandel {

namespace {

// ICU's characters are Qt's, under another name.
const UChar* characters(const QString& text) {
    return reinterpret_cast<const UChar*>(text.utf16());
}

} // namespace

struct LocalizedSearch::Searcher {
    struct CloseCollator {
        void operator()(UCollator* open) const { ucol_close(open); }
    };
    struct CloseSearch {
        void operator()(UStringSearch* open) const { usearch_close(open); }
    };

    std::unique_ptr<UCollator, CloseCollator> collator;
    std::unique_ptr<UStringSearch, CloseSearch> search;
};

LocalizedSearch::LocalizedSearch(QString wanted, const QLocale& locale) : wanted_(std::move(wanted)) {
    if (wanted_.isEmpty()) {
        return;
    }
    searcher_ = std::make_unique<Searcher>();
    UErrorCode error = U_ZERO_ERROR;
    searcher_->collator.reset(ucol_open(locale.name().toLatin1().constData(), &error));
    if (U_FAILURE(error)) {
        searcher_.reset(); // the rules of the language are not installed
        return;
    }
    ucol_setStrength(searcher_->collator.get(), UCOL_SECONDARY);
    // A searcher wants some text to begin with.
    searcher_->search.reset(usearch_openFromCollator(
        characters(wanted_), static_cast<int32_t>(wanted_.size()), characters(wanted_),
        static_cast<int32_t>(wanted_.size()), searcher_->collator.get(), nullptr, &error));
    if (U_FAILURE(error)) {
        searcher_.reset();
        countsForNothing_ = true; // by the rules: it is in every text
    }
}

LocalizedSearch::~LocalizedSearch() = default;

bool LocalizedSearch::isIn(const QString& text) const {
    if (wanted_.isEmpty() || countsForNothing_) {
        return true;
    }
    if (!searcher_) {
        return text.contains(wanted_, Qt::CaseInsensitive);
    }
    if (text.isEmpty()) {
        return false;
    }
    UErrorCode error = U_ZERO_ERROR;
    usearch_setText(searcher_->search.get(), characters(text), static_cast<int32_t>(text.size()), &error);
    return usearch_first(searcher_->search.get(), &error) != USEARCH_DONE && U_SUCCESS(error);
}

} // namespace brivandel
