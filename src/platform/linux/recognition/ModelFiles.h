#pragma once

#include <QString>

#include <optional>

namespace brivandel {

/// Where the engine's English model lies.
struct ModelFiles {
    /// A folder: the acoustic model.
    QString acousticModel;
    /// A text file: words and how they are pronounced.
    QString dictionary;

    /// In the folder that the environment variable BRIVANDEL_MODEL_DIR names, else where the system's package
    /// puts it.
    [[nodiscard]] static ModelFiles locate();

    /// Whether the model is for that language (BCP 47, as in "en-US").
    [[nodiscard]] static bool speaks(const QString& locale);
    /// What is missing or damaged and where it was looked for, for people; none when everything is there.
    [[nodiscard]] std::optional<QString> problem() const;
};

} // namespace brivandel
