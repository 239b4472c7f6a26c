// Every file of examples/ as a user's scripts treat it: tarvikctl opens, converts and plots it without a message.
#include "tests/tools/ctl.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>

namespace tarvik {

namespace {

class ExampleFiles : public CtlTest {
protected:
    static QStringList Files(const QStringList& filter)
    {
        QStringList files;
        QDirIterator each(QStringLiteral(EXAMPLES_FOLDER), filter, QDir::Files, QDirIterator::Subdirectories);
        while (each.hasNext())
            files.append(each.next());
        return files;
    }

    CtlResult Silent(const QStringList& arguments) const
    {
        CtlResult result = Ctl(arguments);
        EXPECT_EQ(result.ExitCode, 0) << arguments.join(u' ').toStdString();
        EXPECT_EQ(result.Err, QString()) << arguments.join(u' ').toStdString();
        return result;
    }
};

} // namespace

TEST_F(ExampleFiles, OpenWithoutMessage)
{
    const QStringList files = Files({ "*.tv?", "*.csv" });
    EXPECT_EQ(files.size(), 38);
    const CtlResult result = Silent(QStringList{ "check" } + files);
    EXPECT_EQ(result.Out.count(u'\n'), files.size());
}

TEST_F(ExampleFiles, ConvertToJsonAndBack)
{
    for (const QString& file : Files({ "*.tv?" })) {
        const QFileInfo info(file);
        const QString json = info.fileName() + ".json";
        const QString copy = info.fileName();
        Silent({ "convert", "--yes", file, json });
        Silent({ "convert", "--yes", json, copy });
        EXPECT_EQ(Json(copy), Json(file)) << file.toStdString();
    }
}

TEST_F(ExampleFiles, ConvertToTheOtherFormat)
{
    for (const QString& file : Files({ "*.csv" })) {
        const QFileInfo info(file);
        const QStringList binary = info.dir().entryList({ info.completeBaseName() + ".tv[akms]" });
        ASSERT_EQ(binary.size(), 1) << file.toStdString();
        Silent({ "convert", "--yes", file, binary.first() });
        QFile expected(info.dir().filePath(binary.first()));
        ASSERT_TRUE(expected.open(QIODevice::ReadOnly));
        EXPECT_EQ(Bytes(binary.first()), expected.readAll()) << file.toStdString();
    }
}

TEST_F(ExampleFiles, PlotTheirTables)
{
    QList<QStringList> plots;
    for (const QString& file : Files({ "*.tvk" }))
        plots.append({ file });
    for (const QString& file : Files({ "*.tvc" }))
        plots.append({ { "--table", "kfactor", file }, { "--table", "omniphase", file } });
    EXPECT_EQ(plots.size(), 12);
    for (const QStringList& plot : plots) {
        SCOPED_TRACE(plot.join(u' ').toStdString());
        Silent(QStringList{ "plot", "--size", "640x400" } + plot + QStringList{ "plot.png" });
        EXPECT_EQ(QImage(Path("plot.png")).size(), QSize(640, 400));
        EXPECT_TRUE(QFile::remove(Path("plot.png")));
        const QJsonObject values =
            QJsonDocument::fromJson(Silent(QStringList{ "plot", "--values" } + plot).Out.toUtf8()).object();
        EXPECT_EQ(values["traces"].toArray().size(), 2);
        EXPECT_LT(values["yBottom"].toDouble(), values["yTop"].toDouble());
    }
}

} // namespace tarvik
