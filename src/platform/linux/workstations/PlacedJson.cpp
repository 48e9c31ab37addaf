#include "platform/linux/workstations/PlacedJson.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>

namespace brivandel {

namespace {

/// The library tells its readers no places. It asks for the text byte by byte, though, and reports a string
/// or a bracket before it reads on: so where it has got to is where that ends.
class WatchedBytes {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    WatchedBytes(const char* at, std::size_t* readCount) : at_(at), readCount_(readCount) {}
    reference operator*() const { return *at_; }
    WatchedBytes& operator++() {
        ++at_;
        ++*readCount_;
        return *this;
    }
    WatchedBytes operator++(int) {
        WatchedBytes before = *this;
        ++*this;
        return before;
    }
    bool operator==(const WatchedBytes& other) const { return at_ == other.at_; }

private:
    const char* at_;
    std::size_t* readCount_;
};

/// The deepest profile has three levels.
constexpr std::size_t maxDepth = 16;

class Builder : public nlohmann::json_sax<nlohmann::json> {
public:
    Builder(const QByteArray& text, const std::size_t& readCount) : text_(text), readCount_(readCount) {}

    bool null() override { return put({PlacedJson::Other(), startOfWord()}); }
    bool boolean(bool /*value*/) override { return null(); }
    bool number_integer(number_integer_t /*value*/) override { return null(); }
    bool number_unsigned(number_unsigned_t value) override {
        return put({PlacedJson::Number{value}, startOfWord()});
    }
    bool number_float(number_float_t /*value*/, const string_t& /*digits*/) override { return null(); }
    bool binary(binary_t& /*value*/) override { return null(); }
    bool string(string_t& value) override { return put({QString::fromStdString(value), startOfString()}); }
    bool key(string_t& value) override {
        auto& members = std::get<PlacedJson::Object>(open_.back().value);
        const QString key = QString::fromStdString(value);
        if (std::ranges::any_of(members,
                                [&](const PlacedJson::Member& member) { return member.key == key; })) {
            return fail(startOfString(), QStringLiteral("\"%1\" stands here twice").arg(key));
        }
        members.push_back({key, startOfString(), {}});
        return true;
    }
    bool start_object(std::size_t /*count*/) override { return open({PlacedJson::Object(), readCount_ - 1}); }
    bool end_object() override { return close(); }
    bool start_array(std::size_t /*count*/) override { return open({PlacedJson::Array(), readCount_ - 1}); }
    bool end_array() override { return close(); }
    bool parse_error(std::size_t /*position*/, const std::string& /*token*/,
                     const nlohmann::detail::exception& error) override {
        // "[json.exception.parse_error.101] parse error at line 1, column 2: syntax error while …": its place
        // is counted in bytes, and told by ours.
        QString sentence = QString::fromUtf8(error.what());
        sentence = sentence.mid(sentence.indexOf(QStringLiteral(": ")) + 2);
        return fail(readCount_ == 0 ? 0 : readCount_ - 1, sentence);
    }

    std::variant<PlacedJson, TextFault> result() {
        if (fault_) {
            return *std::move(fault_);
        }
        return std::move(root_);
    }

private:
    [[nodiscard]] std::size_t startOfString() const {
        auto at = static_cast<qsizetype>(readCount_) - 2;
        const auto isEscaped = [this](qsizetype quote) {
            qsizetype backslashCount = 0;
            while (quote - 1 - backslashCount >= 0 && text_[quote - 1 - backslashCount] == '\\') {
                ++backslashCount;
            }
            return backslashCount % 2 == 1;
        };
        while (at > 0 && (text_[at] != '"' || isEscaped(at))) {
            --at;
        }
        return static_cast<std::size_t>(at);
    }

    /// The library has read one byte further than a number, but not than true, false and null.
    [[nodiscard]] std::size_t startOfWord() const {
        const auto isAround = [this](qsizetype at) {
            return QByteArray(" \t\r\n,:[]{}/").contains(text_[at]);
        };
        auto at = static_cast<qsizetype>(readCount_) - 1;
        if (isAround(at)) {
            --at;
        }
        while (at > 0 && !isAround(at - 1)) {
            --at;
        }
        return static_cast<std::size_t>(at);
    }

    bool put(PlacedJson value) {
        if (open_.empty()) {
            root_ = std::move(value);
        } else if (auto* const array = std::get_if<PlacedJson::Array>(&open_.back().value)) {
            array->push_back(std::move(value));
        } else {
            std::get<PlacedJson::Object>(open_.back().value).back().value = std::move(value);
        }
        return true;
    }

    bool open(PlacedJson value) {
        if (open_.size() == maxDepth) {
            return fail(value.offset, QStringLiteral("this is nested too deeply"));
        }
        open_.push_back(std::move(value));
        return true;
    }

    bool close() {
        PlacedJson value = std::move(open_.back());
        open_.pop_back();
        return put(std::move(value));
    }

    bool fail(std::size_t offset, const QString& sentence) {
        fault_ = faultAt(text_, offset, sentence);
        return false;
    }

    const QByteArray& text_;
    const std::size_t& readCount_;
    std::vector<PlacedJson> open_;
    PlacedJson root_;
    std::optional<TextFault> fault_;
};

} // namespace

std::variant<PlacedJson, TextFault> parsePlacedJson(const QByteArray& text) {
    std::size_t readCount = 0;
    Builder builder(text, readCount);
    constexpr bool isStrict = true;
    constexpr bool ignoresComments = true;
    nlohmann::json::sax_parse(WatchedBytes(text.constData(), &readCount),
                              WatchedBytes(text.constData() + text.size(), &readCount), &builder,
                              nlohmann::json::input_format_t::json, isStrict, ignoresComments);
    return builder.result();
}

TextFault faultAt(const QByteArray& text, std::size_t offset, const QString& sentence) {
    const QByteArray before = text.left(static_cast<qsizetype>(offset));
    const qsizetype lineStart = before.lastIndexOf('\n') + 1;
    return {sentence, static_cast<int>(before.count('\n')) + 1,
            static_cast<int>(QString::fromUtf8(before.mid(lineStart)).size()) + 1};
}

} // namespace brivandel
