#include "platform/linux/recognition/ModelFiles.h"

#include "platform/linux/recognition/ModelIntegrity.h"

#include <QFileInfo>
#include <QStringList>

namespace brivandel {

namespace {

QString modelDirectory() {
    const QString chosen = qEnvironmentVariable("BRIVANDEL_MODEL_DIR");
    return chosen.isEmpty() ? QStringLiteral(BRIVANDEL_PACKAGED_MODEL_DIR) : chosen;
}

bool isReadableFile(const QString& path) {
    const QFileInfo file(path);
    return file.isFile() && file.isReadable();
}

} // namespace

ModelFiles ModelFiles::locate() {
    const QString directory = modelDirectory();
    return {.acousticModel = directory + QStringLiteral("/en-us"),
            .dictionary = directory + QStringLiteral("/cmudict-en-us.dict")};
}

bool ModelFiles::speaks(const QString& locale) {
    return locale.compare(QLatin1StringView("en-US"), Qt::CaseInsensitive) == 0;
}

std::optional<QString> ModelFiles::problem() const {
    // The engine needs all of these and names none of them when it fails.
    const QStringList needed = {dictionary,
                                acousticModel + QStringLiteral("/mdef"),
                                acousticModel + QStringLiteral("/means"),
                                acousticModel + QStringLiteral("/variances"),
                                acousticModel + QStringLiteral("/sendump"),
                                acousticModel + QStringLiteral("/transition_matrices"),
                                acousticModel + QStringLiteral("/feat.params"),
                                acousticModel + QStringLiteral("/noisedict")};
    for (const QString& path : needed) {
        if (!isReadableFile(path)) {
            return QStringLiteral(
                       "The speech model is incomplete: %1 cannot be read. Install the package "
                       "pocketsphinx-en-us, or set BRIVANDEL_MODEL_DIR to the folder of the model.")
                .arg(path);
        }
    }
    if (const auto damaged = damagedFileOf(acousticModel)) {
        return QStringLiteral(
                   "The speech model is damaged: %1 is not whole. Install the package "
                   "pocketsphinx-en-us anew, or set BRIVANDEL_MODEL_DIR to the folder of the model.")
            .arg(*damaged);
    }
    return std::nullopt;
}

} // namespace brivandel
