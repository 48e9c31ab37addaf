#pragma once

#include "platform/linux/recognition/SpokenNumber.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace brivandel {

/// What an utterance may begin with.
enum class Expecting : std::uint8_t {
    /// The wake phrase, alone or with a command.
    WakePhrase,
    /// That, or a command without it.
    Command,
};

/// What words mean in terms of the phrases.
struct Reading {
    /// As the phrases were configured, numbers as digits.
    QString text;
    /// The wake phrase stands before the command, or alone.
    bool hasWakePhrase = false;
    bool hasCommand = false;
    /// No more words are needed for it to be a phrase.
    bool isWhole = false;
    /// More words, or more of the last word, would make it another one.
    bool mayGoOn = false;

    bool operator==(const Reading&) const = default;
};

/// All that may be said, word by word, as a graph: the wake phrase, then one of the phrases, bar phrases with
/// a number. Phrases that begin alike share nodes. Built on one thread, then read on any.
class PhraseGraph {
public:
    struct Edge {
        QString word;
        int target = 0;
    };
    struct Node {
        std::vector<Edge> edges;
        /// A phrase or number may end here.
        bool isEnd = false;
        bool isInNumber = false;
    };

    PhraseGraph();

    /// One of the ways of saying it. text is what to write for it.
    void setWakePhrase(const QString& text, const QStringList& words);
    void addPhrase(const QString& text, const QStringList& words);
    void addBarPhrase(const QString& text, const QStringList& words);

    /// What was said; none when it is not even the beginning of a phrase.
    [[nodiscard]] std::optional<Reading> read(const QStringList& words) const;
    /// How many of the first words are the wake phrase; 0 when it does not stand there.
    [[nodiscard]] qsizetype wakePhraseLength(const QStringList& words) const;
    /// What is for us among these words: all since the last wake phrase; without one all of them where a
    /// command needs none, else nothing.
    [[nodiscard]] QStringList addressed(const QStringList& words, Expecting expecting) const;

    [[nodiscard]] const std::vector<Node>& nodes() const { return nodes_; }
    /// The wake phrase begins at one node and ends at others, where isEnd is set; commands begin at another.
    [[nodiscard]] int wakeRoot() const { return wakeRoot_; }
    [[nodiscard]] int commandRoot() const { return commandRoot_; }
    [[nodiscard]] bool isWakeNode(int node) const;

private:
    struct Texts {
        QString phrase;
        QString barPhrase;
    };

    int addNode();
    int addPath(int from, const QStringList& words);
    [[nodiscard]] std::optional<int> follow(int from, const QString& word) const;
    /// Where it begins; -1 when there is none.
    [[nodiscard]] qsizetype lastWakePhrase(const QStringList& words) const;
    [[nodiscard]] std::optional<Reading> readCommand(const QStringList& words) const;
    [[nodiscard]] bool isTextOfLonger(const QString& text) const;

    std::vector<Node> nodes_;
    /// What ends at the node of the same index; only for nodes of phrases.
    std::vector<Texts> texts_;
    std::array<int, SpokenNumber::shapeCount> numberNodes_{};
    int wakeRoot_ = 0;
    int commandRoot_ = 0;
    QString wakeText_;
    std::vector<char> isWake_;
    QStringList sortedTexts_;
};

} // namespace brivandel
