#include "platform/linux/recognition/PhraseGraph.h"

#include <algorithm>

namespace brivandel {

namespace {

std::size_t index(SpokenNumber::Shape shape) {
    return static_cast<std::size_t>(shape);
}

} // namespace

PhraseGraph::PhraseGraph() {
    // Numbers come first, so that their nodes are there whichever phrase needs them.
    for (int& node : numberNodes_) {
        node = addNode();
        nodes_[static_cast<std::size_t>(node)].isInNumber = true;
    }
    std::array<bool, SpokenNumber::shapeCount> done{};
    std::vector<SpokenNumber> open = {SpokenNumber()};
    while (!open.empty()) {
        const SpokenNumber number = open.back();
        open.pop_back();
        if (std::exchange(done[index(number.shape())], true)) {
            continue;
        }
        Node& node = nodes_[static_cast<std::size_t>(numberNodes_[index(number.shape())])];
        node.isEnd = number.isWhole();
        for (const QLatin1StringView word : SpokenNumber::words()) {
            if (const auto longer = number.followedBy(QString(word))) {
                node.edges.push_back({word, numberNodes_[index(longer->shape())]});
                open.push_back(*longer);
            }
        }
    }
    wakeRoot_ = addNode();
    isWake_[static_cast<std::size_t>(wakeRoot_)] = 1;
    commandRoot_ = addNode();
}

int PhraseGraph::addNode() {
    nodes_.emplace_back();
    texts_.emplace_back();
    isWake_.push_back(0);
    return static_cast<int>(nodes_.size()) - 1;
}

bool PhraseGraph::isWakeNode(int node) const {
    return isWake_[static_cast<std::size_t>(node)] != 0;
}

std::optional<int> PhraseGraph::follow(int from, const QString& word) const {
    for (const Edge& edge : nodes_[static_cast<std::size_t>(from)].edges) {
        if (edge.word == word && !nodes_[static_cast<std::size_t>(edge.target)].isInNumber) {
            return edge.target;
        }
    }
    return std::nullopt;
}

int PhraseGraph::addPath(int from, const QStringList& words) {
    for (const QString& word : words) {
        if (const auto target = follow(from, word)) {
            from = *target;
            continue;
        }
        const int target = addNode();
        isWake_[static_cast<std::size_t>(target)] = isWake_[static_cast<std::size_t>(from)];
        nodes_[static_cast<std::size_t>(from)].edges.push_back({word, target});
        from = target;
    }
    return from;
}

void PhraseGraph::setWakePhrase(const QString& text, const QStringList& words) {
    wakeText_ = text;
    nodes_[static_cast<std::size_t>(addPath(wakeRoot_, words))].isEnd = true;
}

void PhraseGraph::addPhrase(const QString& text, const QStringList& words) {
    const auto end = static_cast<std::size_t>(addPath(commandRoot_, words));
    nodes_[end].isEnd = true;
    // "play!" and "play" sound alike; the longer text is likelier to contain the other, and so serves both.
    if (text.size() > texts_[end].phrase.size()) {
        texts_[end].phrase = text;
    }
    sortedTexts_.insert(std::ranges::lower_bound(sortedTexts_, text), text);
}

void PhraseGraph::addBarPhrase(const QString& text, const QStringList& words) {
    const auto end = static_cast<std::size_t>(addPath(commandRoot_, words));
    if (!texts_[end].barPhrase.isEmpty()) {
        return;
    }
    texts_[end].barPhrase = text;
    const auto start = static_cast<std::size_t>(numberNodes_[index(SpokenNumber::Shape::Nothing)]);
    const std::vector<Edge> numbers = nodes_[start].edges;
    nodes_[end].edges.insert(nodes_[end].edges.end(), numbers.begin(), numbers.end());
}

qsizetype PhraseGraph::wakePhraseLength(const QStringList& words) const {
    qsizetype length = 0;
    int node = wakeRoot_;
    for (qsizetype i = 0; i < words.size(); ++i) {
        const auto next = follow(node, words[i]);
        if (!next) {
            break;
        }
        node = *next;
        if (nodes_[static_cast<std::size_t>(node)].isEnd) {
            length = i + 1;
        }
    }
    return length;
}

qsizetype PhraseGraph::lastWakePhrase(const QStringList& words) const {
    for (qsizetype start = words.size() - 1; start >= 0; --start) {
        if (wakePhraseLength(words.mid(start)) > 0) {
            return start;
        }
    }
    return -1;
}

QStringList PhraseGraph::addressed(const QStringList& words, Expecting expecting) const {
    const qsizetype wake = lastWakePhrase(words);
    if (wake >= 0) {
        return words.mid(wake);
    }
    return expecting == Expecting::Command ? words : QStringList();
}

std::optional<Reading> PhraseGraph::read(const QStringList& words) const {
    const qsizetype wakeLength = wakePhraseLength(words);
    const QStringList rest = words.mid(wakeLength);
    if (rest.isEmpty()) {
        return Reading{.text = wakeLength > 0 ? wakeText_ : QString(),
                       .hasWakePhrase = wakeLength > 0,
                       .isWhole = wakeLength > 0,
                       .mayGoOn = true};
    }
    auto reading = readCommand(rest);
    if (reading && wakeLength > 0) {
        reading->text = wakeText_ + u' ' + reading->text;
        reading->hasWakePhrase = true;
    }
    return reading;
}

std::optional<Reading> PhraseGraph::readCommand(const QStringList& words) const {
    int node = commandRoot_;
    for (qsizetype i = 0; i < words.size(); ++i) {
        const auto next = follow(node, words[i]);
        if (next) {
            node = *next;
            continue;
        }
        const QString& barPhrase = texts_[static_cast<std::size_t>(node)].barPhrase;
        if (barPhrase.isEmpty()) {
            return std::nullopt;
        }
        std::optional<SpokenNumber> number = SpokenNumber();
        for (const QString& word : words.mid(i)) {
            number = number->followedBy(word);
            if (!number) {
                return std::nullopt;
            }
        }
        const Node& end = nodes_[static_cast<std::size_t>(numberNodes_[index(number->shape())])];
        return Reading{.text = barPhrase + u' ' + QString::number(number->value()),
                       .hasCommand = true,
                       .isWhole = number->isWhole(),
                       .mayGoOn = !end.edges.empty()};
    }
    const Node& end = nodes_[static_cast<std::size_t>(node)];
    const Texts& texts = texts_[static_cast<std::size_t>(node)];
    const QString text = end.isEnd ? texts.phrase : words.join(u' ');
    return Reading{.text = text,
                   .hasCommand = true,
                   .isWhole = end.isEnd,
                   .mayGoOn = !end.edges.empty() || isTextOfLonger(text)};
}

bool PhraseGraph::isTextOfLonger(const QString& text) const {
    // "play" is heard on the way to "playful" as well.
    const auto next = std::ranges::upper_bound(sortedTexts_, text);
    return next != sortedTexts_.end() && next->startsWith(text);
}

} // namespace brivandel
