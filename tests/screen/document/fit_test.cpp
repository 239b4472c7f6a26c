#include "screen/document/fit.h"

#include <gtest/gtest.h>

#include <ostream>

void PrintTo(const QSize& size, std::ostream* out)
{
    *out << size.width() << " by " << size.height();
}

namespace tarvik {

namespace {

constexpr QSize kMaster(642, 442);
constexpr double kAspect = 642.0 / 442.0;

FitInput Dragged(QSize client, QSize graph, int description = 0)
{
    return { kMaster, client, graph, description, 0, Arrangement::None };
}

/// Equal to the picture's aspect ratio within a pixel.
bool HasAspect(QSize graph)
{
    return std::abs(graph.width() - graph.height() * kAspect) <= kAspect / 2 + 0.5;
}

} // namespace

TEST(Fit, ChangedWidthSetsHeight)
{
    EXPECT_EQ(FitClient(Dragged({ 321, 442 }, kMaster)), QSize(321, 221));
}

TEST(Fit, ChangedWidthSetsHeightWithDescription)
{
    EXPECT_EQ(FitClient(Dragged({ 321, 442 + 57 }, kMaster, 57)), QSize(321, 221 + 57));
}

TEST(Fit, ChangedHeightSetsWidth)
{
    EXPECT_EQ(FitClient(Dragged({ 642, 221 }, kMaster)), QSize(321, 221));
    EXPECT_EQ(FitClient(Dragged({ 642, 884 + 57 }, kMaster, 57)), QSize(1211, 884 + 57)) << "642 by 941 over 499";
}

TEST(Fit, SufficientHeightKeepsTileWidth)
{
    EXPECT_EQ(
        FitClient({ kMaster, { 1000, 688 + 57 }, kMaster, 57, 0, Arrangement::TileVertically }), QSize(1000, 688 + 57));
}

TEST(Fit, StatusPanelCountsLikeDescription)
{
    const QSize wider(652, 442 + 57 + 20 + 5);
    EXPECT_EQ(FitClient({ kMaster, wider, kMaster, 57, 20, Arrangement::None }), QSize(652, 449 + 57 + 20));
}

TEST(Fit, EmptyClientBecomesOnePixel)
{
    EXPECT_EQ(FitClient({ kMaster, { 0, 0 }, kMaster, 0, 0, Arrangement::Cascade }), QSize(1, 1));
    EXPECT_EQ(FitClient({ kMaster, { -3, 5 }, kMaster, 0, 0, Arrangement::TileVertically }), QSize(1, 1));
}

TEST(Fit, LargerDifferenceLeads)
{
    EXPECT_EQ(FitClient(Dragged({ 742, 452 }, kMaster)), QSize(742, 511));
    EXPECT_EQ(FitClient(Dragged({ 652, 542 }, kMaster)), QSize(787, 542));
}

TEST(Fit, HeightLeadsOnEqualDifferences)
{
    EXPECT_EQ(FitClient(Dragged({ 742, 542 }, kMaster)), QSize(787, 542));
    EXPECT_EQ(FitClient(Dragged({ 742, 342 }, kMaster)), QSize(497, 342));
}

TEST(Fit, KeepsAspectHoweverDragged)
{
    QSize graph = kMaster;
    for (const QSize client : { QSize(300, 500), QSize(900, 300), QSize(901, 641), QSize(640, 642), QSize(400, 700) }) {
        graph = FitClient(Dragged(client, graph));
        EXPECT_TRUE(HasAspect(graph)) << graph.width() << " by " << graph.height();
    }
}

TEST(Fit, KeepsAspectWithDescriptionWhereWidthLeads)
{
    for (const int description : { 15, 141 }) {
        for (const int width : { 300, 900 }) {
            const QSize fitted = FitClient(Dragged({ width, 442 + description }, kMaster, description));
            EXPECT_TRUE(HasAspect(fitted - QSize(0, description))) << width << " over " << description;
        }
    }
}

TEST(Fit, ApproachesAspectWithDescriptionStepByStep)
{
    const QSize once = FitClient(Dragged({ 642, 700 }, kMaster, 57));
    const QSize twice = FitClient(Dragged(once, once - QSize(0, 57), 57));
    const double wanted = (700 - 57) * kAspect;
    EXPECT_EQ(once, QSize(901, 700));
    EXPECT_EQ(twice, QSize(931, 700));
    EXPECT_LT(twice.width(), wanted);
}

TEST(Fit, OfFittedWindowChangesNothing)
{
    for (int width = 20; width < 700; ++width) {
        for (const int description : { 0, 15 }) {
            const QSize once = FitClient(Dragged({ width, 442 + description }, { 642, 442 }, description));
            EXPECT_EQ(FitClient(Dragged(once, once - QSize(0, description), description)), once);
        }
    }
    for (int height = 160; height < 700; ++height) {
        const QSize once = FitClient(Dragged({ 642, height }, { 642, 442 }));
        EXPECT_EQ(FitClient(Dragged(once, once)), once);
    }
}

TEST(Fit, OtherPictureOfSameSizeIsFittedByHeight)
{
    EXPECT_EQ(
        FitClient({ QSize(100, 50), QSize(200, 200), QSize(200, 200), 0, 0, Arrangement::None }), QSize(400, 200));
}

TEST(Fit, CascadeKeepsSize)
{
    EXPECT_EQ(FitClient({ kMaster, QSize(500, 10), kMaster, 15, 0, Arrangement::Cascade }), QSize(500, 10));
}

TEST(Fit, TilingHorizontallyKeepsHeight)
{
    EXPECT_EQ(FitClient({ kMaster, QSize(900, 221), kMaster, 0, 0, Arrangement::TileHorizontally }), QSize(321, 221));
    EXPECT_EQ(FitClient({ kMaster, QSize(10, 221), kMaster, 0, 0, Arrangement::TileHorizontally }), QSize(321, 221));
    EXPECT_EQ(
        FitClient({ kMaster, QSize(900, 221 + 15), kMaster, 15, 0, Arrangement::TileHorizontally }), QSize(335, 236));
}

TEST(Fit, TilingVerticallyKeepsWidthIfHeightSuffices)
{
    EXPECT_EQ(FitClient({ kMaster, QSize(321, 600), kMaster, 0, 0, Arrangement::TileVertically }), QSize(321, 221));
    EXPECT_EQ(FitClient({ kMaster, QSize(321, 600), kMaster, 15, 0, Arrangement::TileVertically }), QSize(321, 236));
    EXPECT_EQ(FitClient({ kMaster, QSize(321, 221), kMaster, 0, 0, Arrangement::TileVertically }), QSize(321, 221));
    EXPECT_EQ(FitClient({ kMaster, QSize(642, 221), kMaster, 0, 0, Arrangement::TileVertically }), QSize(321, 221));
    EXPECT_EQ(FitClient({ kMaster, QSize(642, 236), kMaster, 15, 0, Arrangement::TileVertically }), QSize(332, 236));
}

TEST(Fit, StatusHeightCountsLikeDescription)
{
    EXPECT_EQ(FitClient({ kMaster, QSize(321, 600), kMaster, 15, 5, Arrangement::TileVertically }), QSize(321, 241));
}

TEST(Fit, NothingIsSmallerThanOnePixel)
{
    EXPECT_EQ(FitClient({ kMaster, QSize(1, 1), kMaster, 141, 0, Arrangement::TileHorizontally }), QSize(1, 1));
    EXPECT_EQ(
        FitClient({ QSize(30000, 1), QSize(10, 10), QSize(10, 10), 0, 0, Arrangement::TileVertically }), QSize(10, 1));
}

TEST(Fit, PictureStaysWithinLimits)
{
    const QSize strip(2000, 1);
    EXPECT_EQ(FitClient({ strip, QSize(600, 280), strip, 0, 0, Arrangement::TileHorizontally }), QSize(32767, 16));
    EXPECT_EQ(FitClient({ strip, QSize(2000, 100), strip, 0, 0, Arrangement::None }), QSize(32767, 16));
    const QSize line(1, 2000);
    EXPECT_EQ(FitClient({ line, QSize(400, 2000), line, 0, 0, Arrangement::None }), QSize(16, 32000));
    const QSize large(16384, 8192);
    EXPECT_EQ(FitClient({ large, QSize(16390, 8192), large, 0, 0, Arrangement::None }), large);
    EXPECT_EQ(FitClient({ large, large, large, 0, 0, Arrangement::None }), large);
}

TEST(Fit, DragKeepsUsableTitleBar)
{
    EXPECT_EQ(FitClient(Dragged({ 0, 442 }, kMaster)), QSize(100, 69));
    EXPECT_EQ(FitClient(Dragged({ 642, 0 }, kMaster)), QSize(100, 69));
    EXPECT_EQ(FitClient(Dragged({ 642, 69 }, kMaster)), QSize(100, 69));
    EXPECT_EQ(FitClient(Dragged({ 642, 100 }, kMaster, 141)), QSize(100, 69 + 141)) << "lower than the description";
}

TEST(Fit, DragOfSmallPictureStopsAtItsWidth)
{
    const QSize small(40, 20);
    EXPECT_EQ(FitClient({ small, QSize(40, 1), small, 0, 0, Arrangement::None }), small);
    EXPECT_EQ(FitClient({ small, QSize(60, 20), small, 0, 0, Arrangement::None }), QSize(60, 30));
}

TEST(Fit, WithoutPictureKeepsSize)
{
    EXPECT_EQ(FitClient({ QSize(), QSize(300, 200), QSize(), 0, 0, Arrangement::None }), QSize(300, 200));
}

TEST(Fit, PictureFillsAreaAboveDescription)
{
    EXPECT_EQ(GraphFor({ 300, 200 }, false, 0), QSize(300, 200));
    EXPECT_EQ(GraphFor({ 300, 200 }, true, 150), QSize(300, 150));
    EXPECT_EQ(GraphFor({ 300, 20 }, true, -40), QSize(300, 1));
}

} // namespace tarvik
