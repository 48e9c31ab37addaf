#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QStringList>

#include <gtest/gtest.h>

// Includes go downward only. The table says which folders each folder may see; its own is always allowed, and
// a folder that is not in the table is a mistake.
namespace {

const QMap<QString, QStringList>& allowedFolders() {
    const auto list = [](const char* names) {
        return QString::fromLatin1(names).split(u' ', Qt::SkipEmptyParts);
    };
    static const QMap<QString, QStringList> allowed = {
        {QStringLiteral("platform"), list("")},
        {QStringLiteral("platform/qt"), list("platform")},
        {QStringLiteral("platform/linux"), list("platform platform/qt")},
        {QStringLiteral("platform/macos"), list("platform platform/qt")},
        {QStringLiteral("platform/scripted"), list("platform")},
        {QStringLiteral("commands"), list("platform")},
        {QStringLiteral("engine"), list("platform commands")},
        {QStringLiteral("listening"), list("platform commands engine")},
        {QStringLiteral("widgets"), list("platform commands engine listening")},
        {QStringLiteral("views"), list("platform commands engine listening widgets")},
        {QStringLiteral("settings"), list("platform commands engine listening widgets")},
        {QStringLiteral("app"), list("platform commands engine listening widgets views settings")},
        {QStringLiteral("cli"), list("platform platform/qt platform/scripted commands engine listening")},
    };
    return allowed;
}

// "platform/linux" for "platform/linux/keys/X.h", "engine" for "engine/X.h".
QString folderOf(const QString& path) {
    const QStringList parts = path.split(u'/');
    const bool isPlatformRoom = parts.size() > 2 && parts[0] == QStringLiteral("platform");
    return isPlatformRoom ? parts[0] + u'/' + parts[1] : parts[0];
}

QStringList includesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    static const QRegularExpression expression(QStringLiteral("^\\s*#\\s*(?:include|import)\\s+\"([^\"]+)\""),
                                               QRegularExpression::MultilineOption);
    QStringList includes;
    auto matches = expression.globalMatch(QString::fromUtf8(file.readAll()));
    while (matches.hasNext()) {
        includes += matches.next().captured(1);
    }
    return includes;
}

QStringList sourceFiles() {
    QStringList files;
    const QDir source(QStringLiteral(SOURCE_FOLDER));
    QDirIterator all(source.path(), {QStringLiteral("*.h"), QStringLiteral("*.cpp"), QStringLiteral("*.mm")},
                     QDir::Files, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        files += source.relativeFilePath(all.next());
    }
    files.sort();
    return files;
}

TEST(Includes, EveryFile_SeesOnlyWhatIsBelowIt) {
    const QStringList files = sourceFiles();
    ASSERT_GT(files.size(), 50) << "the sources were not found";
    int followed = 0;
    for (const QString& path : files) {
        if (path == QStringLiteral("main.cpp")) {
            continue; // joins the faces
        }
        const QString folder = folderOf(path);
        ASSERT_TRUE(allowedFolders().contains(folder)) << folder.toStdString() << " is in no layer";
        for (const QString& include : includesOf(QStringLiteral(SOURCE_FOLDER "/") + path)) {
            const QString target = folderOf(include);
            ++followed;
            EXPECT_TRUE(target == folder || allowedFolders().value(folder).contains(target))
                << path.toStdString() << " includes \"" << include.toStdString() << '"';
        }
    }
    EXPECT_GT(followed, 100) << "the includes were not found";
}

TEST(Includes, SharedCode_AsksForNoSystem) {
    static const QRegularExpression system(
        QStringLiteral("^\\s*#\\s*(?:el)?if.*\\b(?:__linux__|__APPLE__|Q_OS_\\w+|_WIN32)"),
        QRegularExpression::MultilineOption);
    for (const QString& path : sourceFiles()) {
        QFile file(QStringLiteral(SOURCE_FOLDER "/") + path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_FALSE(QString::fromUtf8(file.readAll()).contains(system)) << path.toStdString();
    }
}

} // namespace
