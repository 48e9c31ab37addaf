#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace brivandel {

/// A program that can stand for "Logic Pro", or Logic Pro itself.
struct Target {
    QString name;
    std::optional<bool> isRunning; ///< none: it cannot be told here
    bool isChosen = false;         ///< a command would go to it now
    QString profile; ///< the file that has its keys; empty: it is sent the keys as scripts have them
    QString tried;   ///< how far its keys were tried, as a sentence; empty when nobody says
};

struct TargetList {
    std::vector<Target> targets;
    /// What is wrong with profiles, or why none can be chosen, each as a line.
    QStringList problems;
};

/// Every target that is known here. wanted: which program stands for "Logic Pro"; empty: the platform's own
/// rule. Takes up to two seconds. Main thread of a program that does nothing else. Defined once a system.
[[nodiscard]] TargetList listTargets(const QString& wanted);

/// Tells a person where the scripts of one platform go, by the very rule that they go by. Any thread.
class TargetInquiry {
public:
    virtual ~TargetInquiry() = default;
    /// Which program a command would go to now, as a sentence, or why to none. Takes up to two seconds.
    [[nodiscard]] virtual QString inWords() const = 0;
};

} // namespace brivandel
