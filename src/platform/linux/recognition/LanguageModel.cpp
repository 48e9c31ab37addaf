#include "platform/linux/recognition/LanguageModel.h"

#include "platform/linux/recognition/BackgroundWords.h"

#include <QHash>
#include <QMap>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace brivandel {

namespace {

const QString& sentenceStart() {
    static const QString word = QStringLiteral("<s>");
    return word;
}

const QString& sentenceEnd() {
    static const QString word = QStringLiteral("</s>");
    return word;
}

// How sure a history is that what follows is ours; the rest is left to any word. Chosen by trial on synthetic
// speech.
constexpr double oursAtStart = 0.2;
constexpr double oursAtStartOfCommand = 0.5;
constexpr double oursAfterOneWord = 0.5;
constexpr double oursAfterTwoWords = 0.8;

// Shares of the unigrams.
constexpr double shareOfEnd = 0.07;
constexpr double shareOfOurs = 0.03;

using History = std::pair<QString, QString>;

/// How often which word follows.
struct Continuations {
    QMap<QString, double> weights;
    double total = 0;

    void count(const QString& word, double weight) {
        weights[word] += weight;
        total += weight;
    }
    [[nodiscard]] double share(const QString& word) const { return weights.value(word) / total; }
};

bool isNumber(const PhraseGraph& graph, int node) {
    return graph.nodes()[static_cast<std::size_t>(node)].isInNumber;
}

/// How many ways of saying a phrase go through a node outside of numbers, those that end there included. A
/// phrase with a bar number is one, whatever the number.
double phraseCount(const PhraseGraph& graph, int at) {
    const PhraseGraph::Node& node = graph.nodes()[static_cast<std::size_t>(at)];
    double count = node.isEnd ? 1 : 0;
    bool hasNumber = false;
    for (const PhraseGraph::Edge& edge : node.edges) {
        if (isNumber(graph, edge.target)) {
            hasNumber = true;
        } else {
            count += phraseCount(graph, edge.target);
        }
    }
    return count + (hasNumber ? 1 : 0);
}

/// Walks the graph and counts which word follows which one and two words. Every way of saying a phrase is
/// equally likely, so that "stop recording" is no worse than "start recording" where more phrases begin with
/// "stop".
class Counter {
public:
    Counter(const PhraseGraph& graph, Expecting expecting) : graph_(graph) {
        visit({QString(), sentenceStart()}, graph.wakeRoot());
        if (expecting == Expecting::Command) {
            visit({QString(), sentenceStart()}, graph.commandRoot());
        }
        while (!open_.empty()) {
            const State state = open_.back();
            open_.pop_back();
            expand(state);
        }
    }

    [[nodiscard]] const QMap<QString, Continuations>& afterOne() const { return afterOne_; }
    [[nodiscard]] const QMap<History, Continuations>& afterTwo() const { return afterTwo_; }
    [[nodiscard]] const QSet<QString>& words() const { return words_; }

private:
    struct State {
        History history;
        int node;
    };

    void visit(const History& history, int node) {
        const auto key = std::make_pair(history, node);
        if (!seen_.contains(key)) {
            seen_.insert(key);
            open_.push_back({history, node});
        }
    }

    void expand(const State& state) {
        const PhraseGraph::Node& node = graph_.nodes()[static_cast<std::size_t>(state.node)];
        const double endWeight = node.isEnd ? 1 : 0;
        const std::vector<double> weights = edgeWeights(node);
        const double total = std::accumulate(weights.begin(), weights.end(), endWeight);
        if (node.isEnd) {
            count(state.history, sentenceEnd(), endWeight / total);
            if (graph_.isWakeNode(state.node)) {
                visit(state.history, graph_.commandRoot());
            }
        }
        for (std::size_t i = 0; i < node.edges.size(); ++i) {
            const PhraseGraph::Edge& edge = node.edges[i];
            count(state.history, edge.word, weights[i] / total);
            words_.insert(edge.word);
            // Inside a number one word of history is enough, and two would be thousands of histories.
            visit({node.isInNumber ? QString() : state.history.second, edge.word}, edge.target);
        }
    }

    /// Within a number each next word is as likely as the others and as its end.
    [[nodiscard]] std::vector<double> edgeWeights(const PhraseGraph::Node& node) const {
        const auto leadsToNumber = [this](const auto& edge) { return isNumber(graph_, edge.target); };
        const auto numberCount = static_cast<double>(std::ranges::count_if(node.edges, leadsToNumber));
        std::vector<double> weights;
        for (const PhraseGraph::Edge& edge : node.edges) {
            const double ofNumber = node.isInNumber ? 1 : 1 / numberCount;
            weights.push_back(leadsToNumber(edge) ? ofNumber : phraseCount(graph_, edge.target));
        }
        return weights;
    }

    void count(const History& history, const QString& word, double weight) {
        afterOne_[history.second].count(word, weight);
        if (!history.first.isEmpty()) {
            afterTwo_[history].count(word, weight);
        }
    }

    const PhraseGraph& graph_;
    std::vector<State> open_;
    QSet<std::pair<History, int>> seen_;
    QMap<QString, Continuations> afterOne_;
    QMap<History, Continuations> afterTwo_;
    QSet<QString> words_;
};

QHash<QString, double> unigrams(const QSet<QString>& ours) {
    QHash<QString, double> result;
    // Frequency falls with the rank, less steeply among the first.
    double total = 0;
    int rank = 0;
    for (const QStringView word : backgroundWords()) {
        const double weight = 1.0 / (++rank + 10);
        result[word.toString()] = weight;
        total += weight;
    }
    for (double& weight : result) {
        weight *= (1 - shareOfEnd - shareOfOurs) / total;
    }
    for (const QString& word : ours) {
        result[word] += shareOfOurs / static_cast<double>(ours.size());
    }
    result[sentenceEnd()] = shareOfEnd;
    return result;
}

QByteArray logarithm(double probability) {
    return QByteArray::number(std::log10(probability), 'f', 4);
}

/// What a history leaves to its shorter one, for each unit of what that gives to words that are not listed
/// here.
double backoff(double ours, const Continuations& listed,
               const std::function<double(const QString&)>& shorter) {
    double taken = 0;
    for (auto it = listed.weights.begin(); it != listed.weights.end(); ++it) {
        taken += shorter(it.key());
    }
    return (1 - ours) / std::max(1 - taken, 0.01);
}

class Writer {
public:
    Writer(const Counter& counter, Expecting expecting)
        : counter_(counter)
        , atStart_(expecting == Expecting::Command ? oursAtStartOfCommand : oursAtStart)
        , unigrams_(unigrams(counter.words())) {}

    [[nodiscard]] QByteArray write() const {
        const QByteArray one = writeUnigrams();
        const auto [two, bigramCount] = writeBigrams();
        const auto [three, trigramCount] = writeTrigrams();
        return "\\data\\\nngram 1=" + QByteArray::number(unigrams_.size() + 1) +
               "\nngram 2=" + QByteArray::number(bigramCount) +
               "\nngram 3=" + QByteArray::number(trigramCount) + "\n\n\\1-grams:\n" + one + "\n\\2-grams:\n" +
               two + "\n\\3-grams:\n" + three + "\n\\end\\\n";
    }

private:
    [[nodiscard]] double oursAfter(const QString& word) const {
        return word == sentenceStart() ? atStart_ : oursAfterOneWord;
    }

    [[nodiscard]] double bigram(const QString& first, const QString& second) const {
        return oursAfter(first) * counter_.afterOne().find(first)->share(second);
    }

    [[nodiscard]] QByteArray unigramBackoff(const QString& word) const {
        const auto listed = counter_.afterOne().find(word);
        if (listed == counter_.afterOne().end()) {
            return "0.0";
        }
        return logarithm(
            backoff(oursAfter(word), *listed, [this](const QString& next) { return unigrams_.value(next); }));
    }

    [[nodiscard]] QByteArray writeUnigrams() const {
        QByteArray text = "-99 <s> " + unigramBackoff(sentenceStart()) + '\n';
        for (auto it = unigrams_.begin(); it != unigrams_.end(); ++it) {
            text += logarithm(it.value()) + ' ' + it.key().toUtf8() + ' ' + unigramBackoff(it.key()) + '\n';
        }
        return text;
    }

    [[nodiscard]] std::pair<QByteArray, int> writeBigrams() const {
        QByteArray text;
        int count = 0;
        for (auto it = counter_.afterOne().begin(); it != counter_.afterOne().end(); ++it) {
            for (auto next = it->weights.begin(); next != it->weights.end(); ++next) {
                text += logarithm(bigram(it.key(), next.key())) + ' ' + it.key().toUtf8() + ' ' +
                        next.key().toUtf8();
                const auto listed = counter_.afterTwo().find({it.key(), next.key()});
                if (listed != counter_.afterTwo().end()) {
                    const auto shorter = [this, &next](const QString& word) {
                        return bigram(next.key(), word);
                    };
                    text += ' ' + logarithm(backoff(oursAfterTwoWords, *listed, shorter));
                }
                text += '\n';
                ++count;
            }
        }
        return {text, count};
    }

    [[nodiscard]] std::pair<QByteArray, int> writeTrigrams() const {
        QByteArray text;
        int count = 0;
        for (auto it = counter_.afterTwo().begin(); it != counter_.afterTwo().end(); ++it) {
            for (auto next = it->weights.begin(); next != it->weights.end(); ++next) {
                text += logarithm(oursAfterTwoWords * it->share(next.key())) + ' ' + it.key().first.toUtf8() +
                        ' ' + it.key().second.toUtf8() + ' ' + next.key().toUtf8() + '\n';
                ++count;
            }
        }
        return {text, count};
    }

    const Counter& counter_;
    double atStart_;
    QHash<QString, double> unigrams_;
};

} // namespace

QByteArray languageModel(const PhraseGraph& graph, Expecting expecting) {
    const Counter counter(graph, expecting);
    return Writer(counter, expecting).write();
}

} // namespace brivandel
