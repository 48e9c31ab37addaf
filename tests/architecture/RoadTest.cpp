#include <QFile>
#include <QRegularExpression>
#include <QString>

#include <gtest/gtest.h>

// The page that shows where a spoken command goes must name functions that are there.
namespace {

QString textOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

TEST(Road, EveryFunction_IsInTheFileThatIsNamed) {
    const QString page = textOf(QStringLiteral(PROJECT_FOLDER "/ARCHITECTURE.md"));
    static const QRegularExpression station(
        QStringLiteral("`([A-Za-z:]+)` in `([A-Za-z0-9/]+\\.(?:cpp|h))`"));
    int stations = 0;
    auto matches = station.globalMatch(page);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const QString function = match.captured(1);
        const QString path = match.captured(2);
        // A header defines it inside its class.
        const QString defined =
            path.endsWith(QStringLiteral(".h")) ? function.section(QStringLiteral("::"), -1) : function;
        EXPECT_TRUE(textOf(QStringLiteral(SOURCE_FOLDER "/") + path).contains(defined + u'('))
            << function.toStdString() << " is not in " << path.toStdString();
        ++stations;
    }
    EXPECT_GT(stations, 10) << "the road was not found";
}

} // namespace
