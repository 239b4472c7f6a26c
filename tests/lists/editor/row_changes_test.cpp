// The one way in which an editor changes its rows.
#include "lists/editor/rowChanges.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace tarvik {

namespace {

using Rows = std::vector<std::string>;
using Change = std::tuple<int, std::string, std::string>;

class Log final : public RowChanges<std::string> {
public:
    void RowChanged(int row, const std::string& before, const std::string& after) override
    {
        Changes.push_back({ row, before, after });
    }

    std::vector<Change> Changes;
};

} // namespace

TEST(RowChanges, EditOfARowIsReported)
{
    Rows rows{ "a", "b", "c" };
    Log log;
    EditRow(rows, 1, log, [](std::string& row) { row += "x"; });
    EditRow(rows, 2, log, [](std::string&) {});
    EXPECT_EQ(rows, Rows({ "a", "bx", "c" }));
    EXPECT_EQ(log.Changes, std::vector<Change>({ { 1, "b", "bx" } }));
}

TEST(RowChanges, EachRowThatASortChangesIsReported)
{
    Rows rows{ "c", "b", "a" };
    Log log;
    const int result = EditRows(rows, log, [&rows] {
        rows = { "a", "b", "c" };
        return 7;
    });
    EXPECT_EQ(result, 7);
    EXPECT_EQ(log.Changes, std::vector<Change>({ { 0, "c", "a" }, { 2, "a", "c" } }));
}

TEST(RowChanges, ObserverLearnsOfEachChange)
{
    Rows rows{ "b", "a" };
    Log log;
    Log observer;
    log.SetObserver(&observer);
    EditRow(rows, 0, log, [](std::string& row) { row = "c"; });
    EditRows(rows, log, [&rows] {
        rows = { "a", "c" };
        return true;
    });
    EXPECT_EQ(observer.Changes, std::vector<Change>({ { 0, "b", "c" }, { 0, "c", "a" }, { 1, "a", "c" } }));
    EXPECT_EQ(log.Changes, observer.Changes);
    log.SetObserver(nullptr);
    EditRow(rows, 0, log, [](std::string& row) { row = "d"; });
    EXPECT_EQ(observer.Changes.size(), 3U);
    EXPECT_EQ(log.Changes.size(), 4U);
}

} // namespace tarvik
