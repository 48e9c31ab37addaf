#include "platform/linux/recognition/ModelFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <ostream>

namespace brivandel {
namespace {

TEST(ModelFiles, FolderWithoutAModel_SaysWhatIsMissing) {
    const ModelFiles files{QStringLiteral("/nowhere/en-us"), QStringLiteral("/nowhere/words.dict")};
    ASSERT_TRUE(files.problem());
    EXPECT_TRUE(files.problem()->contains(QStringLiteral("/nowhere/words.dict")))
        << qPrintable(*files.problem());
}

TEST(ModelFiles, EnvironmentNamesTheFolder) {
    qputenv("BRIVANDEL_MODEL_DIR", "/chosen");
    EXPECT_EQ(ModelFiles::locate().acousticModel, QStringLiteral("/chosen/en-us"));
    EXPECT_EQ(ModelFiles::locate().dictionary, QStringLiteral("/chosen/cmudict-en-us.dict"));
    qunsetenv("BRIVANDEL_MODEL_DIR");
    EXPECT_FALSE(ModelFiles::locate().problem());
}

TEST(ModelFiles, AmericanEnglishOnly) {
    EXPECT_TRUE(ModelFiles::speaks(QStringLiteral("en-US")));
    EXPECT_FALSE(ModelFiles::speaks(QStringLiteral("de-DE")));
}

/// A copy of the model, to be damaged.
class CopiedModel {
public:
    CopiedModel() {
        const ModelFiles packaged = ModelFiles::locate();
        files_ = {folder_.filePath(QStringLiteral("en-us")), packaged.dictionary};
        QDir().mkpath(files_.acousticModel);
        for (const QString& name : QDir(packaged.acousticModel).entryList(QDir::Files)) {
            QFile::copy(packaged.acousticModel + u'/' + name, path(name));
            QFile::setPermissions(path(name), QFile::ReadOwner | QFile::WriteOwner);
        }
    }

    [[nodiscard]] QString path(const QString& name) const { return files_.acousticModel + u'/' + name; }
    [[nodiscard]] std::optional<QString> problem() const { return files_.problem(); }
    [[nodiscard]] QString damageOf(const QString& name) const {
        return QStringLiteral(
                   "The speech model is damaged: %1 is not whole. Install the package "
                   "pocketsphinx-en-us anew, or set BRIVANDEL_MODEL_DIR to the folder of the model.")
            .arg(path(name));
    }

private:
    QTemporaryDir folder_;
    ModelFiles files_;
};

TEST(ModelFiles, CopyOfTheModel_IsWhole) {
    EXPECT_EQ(CopiedModel().problem(), std::nullopt);
}

// The engine ends the process, or reads beyond the end, when it is given one of these.
class CutModelFile : public testing::TestWithParam<const char*> {};

TEST_P(CutModelFile, IsNamed) {
    const CopiedModel model;
    const QString name = QString::fromLatin1(GetParam());
    const qint64 whole = QFileInfo(model.path(name)).size();
    for (const qint64 length :
         {whole - 1, whole - 4, whole / 2, qint64{2000}, qint64{100}, qint64{7}, qint64{0}}) {
        if (length < whole) {
            ASSERT_TRUE(QFile::resize(model.path(name), length));
            EXPECT_EQ(model.problem(), model.damageOf(name)) << length;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Each, CutModelFile,
                         testing::Values("mdef", "means", "variances", "transition_matrices", "sendump"),
                         [](const auto& parameter) { return parameter.param; });

TEST(ModelFiles, ParametersOfTheFrontEndCutInTheMiddleOfALine_AreNamed) {
    const CopiedModel model;
    const QString name = QStringLiteral("feat.params");
    ASSERT_TRUE(QFile::resize(model.path(name), 100));
    EXPECT_EQ(model.problem(), model.damageOf(name));
}

TEST(ModelFiles, OneBitThatFlipped_IsNamed) {
    const CopiedModel model;
    const QString name = QStringLiteral("transition_matrices");
    QFile file(model.path(name));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.seek(1000));
    char byte = 0;
    ASSERT_TRUE(file.getChar(&byte));
    ASSERT_TRUE(file.seek(1000));
    ASSERT_TRUE(file.putChar(static_cast<char>(byte ^ 0x10)));
    file.close();
    EXPECT_EQ(model.problem(), model.damageOf(name));
}

TEST(ModelFiles, WeightsThatClaimMoreThanAnyFileHolds_AreNamed) {
    const CopiedModel model;
    const QString name = QStringLiteral("sendump");
    const QByteArray text = "feature_count 4";
    const QByteArray most = QByteArrayLiteral("\xff\xff\xff\x7f");
    const auto write = [&](const QByteArray& header) {
        QFile file(model.path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(header + QByteArray(4, '\0') + most + most + QByteArray(1000, '\0'));
    };
    write(QByteArrayLiteral("\x10\0\0\0") + text + '\0');
    EXPECT_EQ(model.problem(), model.damageOf(name));
    // Cut off where its number would stand.
    write(QByteArrayLiteral("\x0e\0\0\0") + text.first(14));
    EXPECT_EQ(model.problem(), model.damageOf(name));
}

TEST(ModelFiles, FolderInPlaceOfAFile_IsNamed) {
    const CopiedModel model;
    ASSERT_TRUE(QFile::remove(model.path(QStringLiteral("means"))));
    ASSERT_TRUE(QDir().mkdir(model.path(QStringLiteral("means"))));
    ASSERT_TRUE(model.problem());
    EXPECT_TRUE(
        model.problem()->contains(model.path(QStringLiteral("means")) + QStringLiteral(" cannot be read")));
}

} // namespace
} // namespace brivandel
