// Positions of child windows when they are arranged.
#include "screen/window/tiling.h"
#include "tests/support/fixture.h"

namespace tarvik {

namespace {

constexpr QSize kRoom(1000, 600);

int AreaOf(const QVector<QRect>& places)
{
    int area = 0;
    for (const QRect& place : places)
        area += place.width() * place.height();
    return area;
}

void ExpectFilled(const QVector<QRect>& places, QSize room)
{
    EXPECT_EQ(AreaOf(places), room.width() * room.height());
    for (qsizetype at = 0; at < places.size(); ++at) {
        EXPECT_TRUE(QRect(QPoint(), room).contains(places[at]));
        for (qsizetype other = 0; other < at; ++other)
            EXPECT_FALSE(places[at].intersects(places[other])) << at << " and " << other;
    }
}

} // namespace

TEST(Tiling, TwoAndThreeWindowsFormOneColumnOrRow)
{
    EXPECT_EQ(TilePlaces(2, kRoom, true), (QVector<QRect>{ { 0, 0, 1000, 300 }, { 0, 300, 1000, 300 } }));
    EXPECT_EQ(TilePlaces(2, kRoom, false), (QVector<QRect>{ { 0, 0, 500, 600 }, { 500, 0, 500, 600 } }));
    EXPECT_EQ(TilePlaces(3, kRoom, true).last(), QRect(0, 400, 1000, 200));
}

TEST(Tiling, OneWindowFillsRoomAndNoneFillsNothing)
{
    EXPECT_EQ(TilePlaces(1, kRoom, true), (QVector<QRect>{ { 0, 0, 1000, 600 } }));
    EXPECT_TRUE(TilePlaces(0, kRoom, true).isEmpty());
}

TEST(Tiling, ManyWindowsFillRoomWithoutOverlap)
{
    for (int count = 1; count <= 100; ++count) {
        for (const bool stacked : { true, false }) {
            const QVector<QRect> places = TilePlaces(count, QSize(1279, 773), stacked);
            EXPECT_EQ(places.size(), count);
            ExpectFilled(places, QSize(1279, 773));
        }
    }
}

TEST(Tiling, ColumnsDifferByOneWindowAtMost)
{
    const QVector<QRect> places = TilePlaces(5, kRoom, true);
    EXPECT_EQ(places[0].height(), 300); // two in the first column
    EXPECT_EQ(places[2].height(), 200); // three in the second
}

TEST(Cascade, StepsDownRightAndRestartsFurtherRight)
{
    const QSize window(700, 300);
    EXPECT_EQ(CascadePlace(0, window, kRoom, 20), QPoint(0, 0));
    EXPECT_EQ(CascadePlace(15, window, kRoom, 20), QPoint(300, 300));
    EXPECT_EQ(CascadePlace(16, window, kRoom, 20), QPoint(20, 0));
}

TEST(Cascade, ShowsSomeTitleBarsOfTooLargeWindows)
{
    EXPECT_EQ(CascadePlace(5, QSize(2000, 2000), kRoom, 20), QPoint(100, 100));
    EXPECT_EQ(CascadePlace(6, QSize(2000, 2000), kRoom, 20), QPoint(20, 0));
}

TEST(Cascade, NewWindowUsesFreePosition)
{
    const QSize window(700, 300);
    EXPECT_EQ(FreeCascadePlace({}, window, kRoom, 20), QPoint(0, 0));
    EXPECT_EQ(FreeCascadePlace({ { 0, 0 }, { 40, 40 } }, window, kRoom, 20), QPoint(20, 20));
    QVector<QPoint> taken;
    for (int count = 0; count < 100; ++count) {
        const QPoint place = FreeCascadePlace(taken, window, kRoom, 20);
        EXPECT_FALSE(taken.contains(place));
        taken.append(place);
    }
}

TEST(Icons, FormRowsFromBottomEdge)
{
    const QVector<QSize> icons(7, QSize(300, 30));
    const QVector<QPoint> places = IconPlaces(icons, kRoom);
    EXPECT_EQ(places[0], QPoint(0, 570));
    EXPECT_EQ(places[2], QPoint(600, 570));
    EXPECT_EQ(places[3], QPoint(0, 540));
    EXPECT_EQ(places[6], QPoint(0, 510));
    EXPECT_EQ(RoomAboveIcons(icons, kRoom), QSize(1000, 510));
    EXPECT_EQ(RoomAboveIcons({}, kRoom), kRoom);
}

TEST(Icons, HighestOfRowSetsRowHeight)
{
    const QVector<QPoint> places = IconPlaces({ { 600, 40 }, { 300, 30 }, { 300, 20 } }, kRoom);
    EXPECT_EQ(places, QVector<QPoint>({ { 0, 560 }, { 600, 570 }, { 0, 540 } }));
}

TEST(Icons, LeaveQuarterOfRoomToWindows)
{
    EXPECT_EQ(RoomAboveIcons(QVector<QSize>(100, QSize(300, 30)), kRoom), QSize(1000, 150));
}

} // namespace tarvik
