// Texts of diagrams, and where they are.
#include "app/text/lang.h"
#include "screen/diagram/diagramLayout.h"
#include "tests/screen/diagram/diagram_fixture.h"
#include "tests/support/fixture.h"

#include <QFontMetrics>
#include <QPainter>

#include <set>

namespace tarvik {

namespace {

/// Sizes of windows, with and without a description below the picture.
std::vector<QSize> Sizes()
{
    std::vector<QSize> sizes{ { 320, 200 }, { 640, 200 }, { 320, 1440 }, { 2560, 200 }, { 792, 560 }, { 1366, 768 },
        { 1920, 1080 }, { 2560, 1440 } };
    for (int width = 320; width <= 2560; width += 97) {
        for (int height = 200; height <= 1440; height += 83)
            sizes.emplace_back(width, height);
    }
    return sizes;
}

class DiagramLayouts : public ProgramTest {
protected:
    static DiagramText TextOf(const MultiTraceInput& input)
    {
        return DiagramTextOf(DiagramOf(input)->Content);
    }

    static MultiTraceInput Between(double firstHz, double lastHz, double bottom = 0, double top = 20)
    {
        MultiTraceInput input = KfactorInput(2, 1);
        input.Points[0] = { firstHz, { bottom } };
        input.Points[1] = { lastHz, { top } };
        return input;
    }

    /// Tables whose labels are of different lengths.
    static std::vector<DiagramText> Texts()
    {
        MultiTraceInput longNames = KfactorInput(200, 3);
        longNames.Name = QString(200, u'W');
        longNames.SeriesNames.fill(QString(90, u'M'));
        MultiTraceInput unnamed = KfactorInput(1, 3);
        unnamed.Name.clear();
        unnamed.SeriesNames.fill({});
        MultiTraceInput phase = Between(20123456, 20123999, -360, 360);
        phase.YUnit = UnitCode::Degree;
        return { TextOf(KfactorInput()), TextOf(longNames), TextOf(unnamed), TextOf(phase),
            TextOf(Between(9000, 7999999999.0, -99.99, 200)), TextOf(Between(7999999999.0, 9000)),
            TextOf(Between(1e9, 1e9 + 1, -12345678.9, 98765432.1)), TextOf(Between(-1e-9, 1e-9, 1e-9, 2e-9)) };
    }

    static void ExpectApart(const DiagramLayout& layout, QSize size)
    {
        const QRect picture(QPoint(), size);
        QVector<QRect> places;
        for (const DiagramLabel& label : layout.Labels)
            places.append(label.Place);
        for (const DiagramSample& sample : layout.Samples)
            places.append(sample.Place);
        for (qsizetype at = 0; at < places.size(); ++at) {
            EXPECT_TRUE(picture.contains(places[at])) << size.width() << 'x' << size.height();
            EXPECT_FALSE(places[at].intersects(layout.Plot)) << size.width() << 'x' << size.height();
            for (qsizetype other = 0; other < at; ++other)
                EXPECT_FALSE(places[at].intersects(places[other])) << size.width() << 'x' << size.height();
        }
        const QFontMetrics metrics(layout.Font);
        for (const DiagramLabel& label : layout.Labels) {
            EXPECT_GE(label.Place.width(), metrics.horizontalAdvance(label.Text));
            EXPECT_GE(label.Place.height(), metrics.height());
        }
    }

    static QStringList TextsIn(const DiagramLayout& layout)
    {
        QStringList texts;
        for (const DiagramLabel& label : layout.Labels)
            texts.append(label.Text);
        return texts;
    }

    static QRect PlaceOf(const DiagramLayout& layout, const QString& text)
    {
        for (const DiagramLabel& label : layout.Labels) {
            if (label.Text == text)
                return label.Place;
        }
        ADD_FAILURE() << "no " << text.toStdString();
        return {};
    }
};

} // namespace

TEST_F(DiagramLayouts, NoLabelIsClippedOrOverlapsAtAnySize)
{
    for (const DiagramText& text : Texts()) {
        for (const int scale : { 1, 2 }) {
            for (const QSize& size : Sizes())
                ExpectApart(LayOutDiagram(text, size * scale, scale), size * scale);
        }
    }
}

TEST_F(DiagramLayouts, NothingOverlapsInPicturesTooSmallForTheirLabels)
{
    for (const DiagramText& text : Texts()) {
        for (const QSize size : { QSize(1, 1), QSize(40, 10), QSize(10, 40), QSize(100, 60), QSize(200, 100) }) {
            const DiagramLayout layout = LayOutDiagram(text, size, 1);
            const QRect picture(QPoint(), size);
            for (qsizetype at = 0; at < layout.Labels.size(); ++at) {
                EXPECT_TRUE(picture.contains(layout.Labels[at].Place));
                for (qsizetype other = 0; other < at; ++other)
                    EXPECT_FALSE(layout.Labels[at].Place.intersects(layout.Labels[other].Place));
            }
        }
    }
}

TEST_F(DiagramLayouts, EverySizeShowsEndsUnitsAndLegend)
{
    const DiagramText text = TextOf(KfactorInput());
    for (const int scale : { 1, 2 }) {
        for (const QSize& size : Sizes()) {
            const DiagramLayout layout = LayOutDiagram(text, size * scale, scale);
            const QStringList texts = TextsIn(layout);
            for (const QString& label :
                { text.XLabels.front(), text.XLabels.back(), text.YLabels.front(), text.YLabels.back(), text.XCaption,
                    text.YCaption, text.Title, text.Legend[0], text.Legend[1], text.LegendSeparator })
                EXPECT_TRUE(texts.contains(label)) << label.toStdString() << size.width() << 'x' << size.height();
            EXPECT_EQ(layout.Samples.size(), 2);
        }
    }
}

TEST_F(DiagramLayouts, PaintedTextStaysInItsPlace)
{
    for (const DiagramText& text : Texts()) {
        for (const QSize size : { QSize(320, 200), QSize(792, 560), QSize(1584, 1120) }) {
            const DiagramLayout layout = LayOutDiagram(text, size, size.width() > 1000 ? 2 : 1);
            QImage picture(size, QImage::Format_RGB32);
            picture.fill(Qt::white);
            {
                QPainter painter(&picture);
                painter.setFont(layout.Font);
                for (const DiagramLabel& label : layout.Labels)
                    painter.drawText(label.Place, Qt::AlignCenter | Qt::TextDontClip, label.Text);
                for (const DiagramLabel& label : layout.Labels)
                    painter.fillRect(label.Place, Qt::white);
            }
            QImage blank(size, QImage::Format_RGB32);
            blank.fill(Qt::white);
            EXPECT_EQ(picture, blank) << size.width() << ' ' << text.Title.toStdString();
        }
    }
}

TEST_F(DiagramLayouts, PlotHasEvenSidesAndBandsOfThreeLines)
{
    const DiagramText text = TextOf(KfactorInput());
    for (const QSize& size : Sizes()) {
        const DiagramLayout layout = LayOutDiagram(text, size, 1);
        const int band = 3 * QFontMetrics(layout.Font).height() + 3 * size.height() / 560;
        EXPECT_EQ(layout.Plot.width() % 2, 0);
        EXPECT_EQ(layout.Plot.height() % 2, 0);
        EXPECT_EQ(layout.Plot.top(), band);
        EXPECT_GE(layout.Plot.height(), 10);
        EXPECT_NEAR(layout.Plot.bottom() + 1, size.height() - band, 1);
    }
    EXPECT_EQ(LayOutDiagram(text, { 30, 30 }, 1).Plot.size(), QSize(10, 10)) << "the smallest";
}

TEST_F(DiagramLayouts, FontShrinksUntilThePlotHasThreeQuarters)
{
    const int large = DiagramFont(560, 1).pixelSize();
    for (int height = 560; height >= 200; --height) {
        const int pixels = DiagramFont(height, 1).pixelSize();
        const DiagramLayout layout = LayOutDiagram({}, { 792, height }, 1);
        EXPECT_TRUE(layout.Plot.height() >= 0.75 * height || pixels == 8) << height;
        if (pixels < large) {
            QFont larger = DiagramFont(height, 1);
            larger.setPixelSize(pixels + 1);
            const int band = 3 * QFontMetrics(larger).height() + 3 * height / 560;
            EXPECT_LT(height - 2 * band, 0.75 * height) << "no smaller than needed";
        }
    }
    EXPECT_EQ(DiagramFont(200, 1).pixelSize(), 8) << "the smallest that can be read";
    EXPECT_EQ(DiagramFont(1120, 2).pixelSize(), 2 * large);
}

TEST_F(DiagramLayouts, GridDividesThePlotInTenths)
{
    const DiagramLayout layout = LayOutDiagram(TextOf(KfactorInput()), { 792, 560 }, 1);
    ASSERT_EQ(layout.Columns.size(), 9);
    ASSERT_EQ(layout.Rows.size(), 9);
    for (int at = 1; at <= 9; ++at) {
        EXPECT_EQ(layout.Columns[at - 1], layout.Plot.left() + at * layout.Plot.width() / 10);
        EXPECT_EQ(
            layout.Rows[at - 1], layout.Plot.top() + layout.Plot.height() / 2 + (at - 5) * layout.Plot.height() / 10);
    }
}

TEST_F(DiagramLayouts, LabelsAreAtTheirGridLines)
{
    const DiagramText text = TextOf(Between(100e6, 200e6));
    const DiagramLayout layout = LayOutDiagram(text, { 1000, 700 }, 1);
    EXPECT_NEAR(PlaceOf(layout, "150").center().x(), layout.Columns[4], 1);
    EXPECT_NEAR(PlaceOf(layout, "100").center().x(), layout.Plot.left(), 1);
    EXPECT_NEAR(PlaceOf(layout, "10.0").center().y(), layout.Rows[4], 1);
    EXPECT_NEAR(PlaceOf(layout, "0.0").center().y(), layout.Plot.bottom() + 1, 1);
    EXPECT_LT(PlaceOf(layout, "dB/m").bottom(), PlaceOf(layout, "20.0").top());
    EXPECT_GT(PlaceOf(layout, "Frequency : MHz").top(), PlaceOf(layout, "150").bottom());
}

TEST_F(DiagramLayouts, NarrowPicturesSkipLabels)
{
    const DiagramText text = TextOf(Between(20123456, 20987654));
    const auto count = [&](QSize size) {
        int labels = 0;
        for (const QString& label : TextsIn(LayOutDiagram(text, size, 1)))
            labels += std::count(text.XLabels.begin(), text.XLabels.end(), label) > 0 ? 1 : 0;
        return labels;
    };
    EXPECT_EQ(count({ 2560, 560 }), 11);
    EXPECT_LT(count({ 500, 560 }), 11);
    EXPECT_GE(count({ 320, 560 }), 2);
}

TEST_F(DiagramLayouts, FrequenciesHaveOnePrefix)
{
    const DiagramText megahertz = TextOf(Between(20e6, 120e6));
    EXPECT_EQ(megahertz.XCaption, LngStr(13501) + " : MHz");
    EXPECT_EQ(megahertz.XLabels.front(), "20");
    EXPECT_EQ(megahertz.XLabels[1], "30");
    EXPECT_EQ(megahertz.XLabels.back(), "120");
    const DiagramText wide = TextOf(Between(9000, 3e9));
    EXPECT_EQ(wide.XCaption, "Frequency : MHz");
    EXPECT_EQ(wide.XLabels.front(), "0.009");
    EXPECT_EQ(wide.XLabels.back(), "3000");
    EXPECT_EQ(TextOf(Between(9000, 30e9)).XLabels.back(), "30");
    EXPECT_EQ(TextOf(Between(9000, 30e9)).XCaption, "Frequency : GHz");
    EXPECT_EQ(TextOf(Between(9000, 90000)).XCaption, "Frequency : kHz");
    EXPECT_EQ(TextOf(Between(1, 9)).XCaption, "Frequency : Hz");
}

TEST_F(DiagramLayouts, LabelsBetweenTheEndsAreRounded)
{
    const DiagramText text = TextOf(Between(20123456, 21000001));
    EXPECT_EQ(text.XLabels.front(), "20.123456");
    EXPECT_EQ(text.XLabels[1], "20.2111");
    EXPECT_EQ(text.XLabels.back(), "21.000001");
}

TEST_F(DiagramLayouts, ValuesHaveOneDecimal)
{
    const DiagramText text = TextOf(Between(1e6, 2e6, 3.14, 4.14));
    EXPECT_EQ(text.YLabels.front(), "3.1");
    EXPECT_EQ(text.YLabels[1], "3.2");
    EXPECT_EQ(text.YLabels.back(), "4.1");
    EXPECT_EQ(text.YCaption, "dB/m");
}

TEST_F(DiagramLayouts, UnitsFollowTheirCodes)
{
    MultiTraceInput input = Between(1e6, 2e6);
    input.YUnit = UnitCode::Degree;
    EXPECT_EQ(TextOf(input).YCaption, LngStr(14131));
    input.YUnit = static_cast<UnitCode>(99);
    EXPECT_EQ(TextOf(input).YCaption, "");
    input.XUnit = UnitCode::None;
    EXPECT_EQ(TextOf(input).XLabels.back(), "2000000");
}

TEST_F(DiagramLayouts, LabelsUseTheRegionsDecimalCharacter)
{
    SetRegion(QLocale(QLocale::German, QLocale::Germany));
    const DiagramText text = TextOf(Between(20.5e6, 30e6, 0.5, 10));
    EXPECT_EQ(text.XLabels.front(), "20,5");
    EXPECT_EQ(text.YLabels.front(), "0,5");
}

TEST_F(DiagramLayouts, OneValueOfXIsInTheMiddle)
{
    const DiagramText text = TextOf(KfactorInput(1, 1));
    EXPECT_EQ(text.XLabels[5], "30");
    EXPECT_EQ(text.XLabels.front(), "");
    EXPECT_EQ(text.XLabels.back(), "");
}

TEST_F(DiagramLayouts, LegendNumbersSeriesWithoutNames)
{
    MultiTraceInput input = KfactorInput(10, 3);
    input.SeriesNames[1].clear();
    EXPECT_EQ(TextOf(input).Legend, (std::vector<QString>{ "Passive", "2", "Third" }));
}

TEST_F(DiagramLayouts, LongTitlesAndNamesAreElided)
{
    MultiTraceInput input = KfactorInput();
    input.Name = QString(300, u'W');
    input.SeriesNames[0] = QString(300, u'M');
    const DiagramText text = TextOf(input);
    const QStringList texts = TextsIn(LayOutDiagram(text, { 400, 300 }, 1));
    EXPECT_EQ(texts.filter(QString(u'…')).size(), 2);
    EXPECT_TRUE(texts.contains("Active"));
}

TEST_F(DiagramLayouts, BandsGrowWithThePicture)
{
    const DiagramText none;
    for (const QSize size : { QSize(792, 560), QSize(1584, 1120), QSize(2560, 1440), QSize(400, 560) }) {
        const DiagramLayout layout = LayOutDiagram(none, size, 1);
        const int lines = 3 * QFontMetrics(layout.Font).height();
        const int side = lines + 5 * size.width() / 792;
        EXPECT_EQ(layout.Plot.left(), side);
        EXPECT_NEAR(layout.Plot.right() + 1, size.width() - side, 1);
        EXPECT_EQ(layout.Plot.top(), lines + 3 * size.height() / 560);
    }
}

TEST_F(DiagramLayouts, SpanIsMadeEvenByOneMore)
{
    for (int side = 400; side < 404; ++side) {
        const DiagramLayout layout = LayOutDiagram({}, { side, side }, 1);
        const int lines = 3 * QFontMetrics(layout.Font).height();
        const int width = side - 2 * (lines + 5 * side / 792);
        const int height = side - 2 * (lines + 3 * side / 560);
        EXPECT_EQ(layout.Plot.width(), width + width % 2);
        EXPECT_EQ(layout.Plot.height(), height + height % 2);
    }
}

TEST_F(DiagramLayouts, LegendIsInTheOrderOfTheTraces)
{
    const DiagramLayout layout = LayOutDiagram(TextOf(KfactorInput(10, 3)), { 792, 560 }, 1);
    ASSERT_EQ(layout.Samples.size(), 3);
    int before = 0;
    const std::array names{ QStringLiteral("Passive"), QStringLiteral("Active"), QStringLiteral("Third") };
    for (int at = 0; at < 3; ++at) {
        EXPECT_EQ(layout.Samples[at].Trace, at);
        EXPECT_GT(layout.Samples[at].Place.left(), before);
        EXPECT_GT(PlaceOf(layout, names[static_cast<size_t>(at)]).left(), layout.Samples[at].Place.right());
        before = PlaceOf(layout, names[static_cast<size_t>(at)]).right();
    }
    EXPECT_EQ(TextsIn(layout).count(QStringLiteral(" : ")), 2);
}

TEST_F(DiagramLayouts, LabelsOfXAreApartAndAsManyAsFit)
{
    const DiagramText text = TextOf(Between(20123456, 20987654));
    std::set<qsizetype> counts;
    for (int width = 320; width <= 2560; width += 20) {
        const DiagramLayout layout = LayOutDiagram(text, { width, 560 }, 1);
        const int gap = QFontMetrics(layout.Font).height() / 4;
        QVector<QRect> places;
        for (const DiagramLabel& label : layout.Labels) {
            if (std::count(text.XLabels.begin(), text.XLabels.end(), label.Text) > 0)
                places.append(label.Place);
        }
        for (qsizetype at = 1; at < places.size(); ++at)
            EXPECT_GE(places[at].left() - places[at - 1].right() - 1, gap) << width;
        counts.insert(places.size());
    }
    EXPECT_EQ(counts, (std::set<qsizetype>{ 3, 6, 11 })) << "all, every second, every fifth";
}

TEST_F(DiagramLayouts, LabelsOfTheEndsStayInThePicture)
{
    DiagramText text;
    text.XLabels.front() = QString(24, u'1');
    text.XLabels.back() = QString(24, u'2');
    const DiagramLayout layout = LayOutDiagram(text, { 792, 560 }, 1);
    EXPECT_EQ(PlaceOf(layout, text.XLabels.front()).left(), 0);
    EXPECT_EQ(PlaceOf(layout, text.XLabels.back()).right(), 791);
}

TEST_F(DiagramLayouts, LegendStaysAboveThePlot)
{
    std::vector<QSize> sizes = Sizes();
    for (int width = 60; width < 320; width += 7)
        sizes.emplace_back(width, 200);
    for (const DiagramText& text : Texts()) {
        for (const QSize& size : sizes) {
            const DiagramLayout layout = LayOutDiagram(text, size, 1);
            for (const DiagramSample& sample : layout.Samples)
                EXPECT_LE(sample.Place.right(), layout.Plot.right()) << size.width();
            for (const DiagramLabel& label : layout.Labels) {
                const bool isName = !layout.Samples.isEmpty() && label.Place.top() == layout.Samples[0].Place.top();
                EXPECT_TRUE(!isName || label.Place.right() <= layout.Plot.right() + 1) << size.width();
            }
        }
    }
}

TEST_F(DiagramLayouts, FallingFrequenciesHaveThePrefixOfTheFirst)
{
    const DiagramText text = TextOf(Between(3e9, 9000));
    EXPECT_EQ(text.XCaption, "Frequency : MHz");
    EXPECT_EQ(text.XLabels.front(), "3000");
    EXPECT_EQ(text.XLabels.back(), "0.009");
}

} // namespace tarvik
