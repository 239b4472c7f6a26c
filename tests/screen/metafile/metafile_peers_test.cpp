// Other programs as reference: both sides render each other's files alike.
#include "screen/metafile/metafileReader.h"
#include "screen/metafile/metafileWriter.h"
#include "tests/support/fixture.h"

#include <QColorSpace>
#include <QPainter>
#include <QProcess>

namespace tarvik {

namespace {

constexpr int kPatienceMs = 60000;

/// Absolute paths, so that no other program of the same name is used.
const QString kConvert = QStringLiteral("/usr/bin/convert");
const QString kWmf2Svg = QStringLiteral("/usr/bin/wmf2svg");

/// A screen picture with lines, text and noise.
QImage Screen(int width, int height)
{
    QImage screen(width, height, QImage::Format_RGB32);
    screen.fill(QColor(8, 16, 32));
    QPainter painter(&screen);
    painter.setPen(Qt::green);
    painter.drawText(screen.rect(), Qt::AlignCenter, QStringLiteral("145.500 MHz"));
    painter.setPen(Qt::gray);
    for (int x = 0; x < width; x += 50)
        painter.drawLine(x, 0, x, height);
    painter.end();
    quint32 noise = 1;
    for (int x = 0; x < width; ++x) {
        noise = noise * 1664525 + 1013904223;
        screen.setPixel(x, static_cast<int>(noise >> 16) % height, noise | 0xFF000000);
    }
    return screen;
}

class MetafilePeers : public ProgramTest {
protected:
    /// Runs a program in the test's folder; returns its output, empty on failure.
    QByteArray Run(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        process.setWorkingDirectory(Folder());
        process.start(program, arguments);
        const bool ended = process.waitForFinished(kPatienceMs);
        EXPECT_TRUE(ended) << program.toStdString() << " is missing? packages.txt names its package";
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return process.readAllStandardOutput();
    }

    /// The pixels of a picture, without the colour space that other programs declare.
    QImage Load(const QString& name) const
    {
        QImage picture = QImage(FilePath(name)).convertToFormat(QImage::Format_RGB32);
        picture.setColorSpace({});
        return picture;
    }
};

} // namespace

class WrittenMetafile : public MetafilePeers, public testing::WithParamInterface<QSize> { };

TEST_P(WrittenMetafile, HasSamePixelsInImageMagick)
{
    const QImage screen = Screen(GetParam().width(), GetParam().height());
    ASSERT_TRUE(WriteMetafile(FilePath("a.wmf"), screen));
    Run(kConvert, { "-density", "96", "a.wmf", "-depth", "8", "png24:a.png" });
    EXPECT_EQ(Load("a.png"), screen);
}

TEST_P(WrittenMetafile, HasSamePixelsInWmf2Svg)
{
    const QImage screen = Screen(GetParam().width(), GetParam().height());
    ASSERT_TRUE(WriteMetafile(FilePath("a.wmf"), screen));
    Run(kWmf2Svg, { "--maxwidth=4096", "--maxheight=4096", "-o", "a.svg", "a.wmf" });
    const QByteArray size = "<svg width=\"" + QByteArray::number(screen.width()) + "\" height=\""
        + QByteArray::number(screen.height()) + "\"";
    EXPECT_TRUE(Contents(FilePath("a.svg")).contains(size)) << Contents(FilePath("a.svg")).toStdString();
    EXPECT_EQ(Load("a-1.png"), screen);
}

INSTANTIATE_TEST_SUITE_P(Sizes, WrittenMetafile, testing::Values(QSize(642, 442), QSize(641, 101), QSize(1280, 720)),
    [](const auto& test) { return std::to_string(test.param.width()) + "by" + std::to_string(test.param.height()); });

/// A drawing exported by an office program, and that program's rendering of it.
TEST(ReadMetafile, MatchesRenderingOfDrawingProgram)
{
    QFile file(QStringLiteral(DRAWINGS "/shapes.wmf"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto ours = ReadMetafile(file.readAll(), Qt::white);
    const QImage theirs = QImage(QStringLiteral(DRAWINGS "/shapes.png")).convertToFormat(QImage::Format_RGB32);
    ASSERT_TRUE(ours);
    ASSERT_EQ(ours->size(), theirs.size());
    int different = 0;
    for (int y = 0; y < theirs.height(); ++y) {
        for (int x = 0; x < theirs.width(); ++x) {
            const QRgb a = ours->pixel(x, y);
            const QRgb b = theirs.pixel(x, y);
            const int far = qMax(qAbs(qRed(a) - qRed(b)), qMax(qAbs(qGreen(a) - qGreen(b)), qAbs(qBlue(a) - qBlue(b))));
            different += far > 128 ? 1 : 0;
        }
    }
    // Only the reference is antialiased.
    EXPECT_LT(different, theirs.width() * theirs.height() / 100);
}

} // namespace tarvik
