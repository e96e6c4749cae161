#include "lists/MP_AufSearchCondition.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <functional>
#include <memory>

#include "tests/lists/TraceCapture.h"

namespace {

using Condition = MP_AufSearchCondition;
using MakeRequest = std::function<MetadataSearchMediaRequest*(std::unique_ptr<Condition>&)>;

// "type/operator/length/value": text up to its NUL, "#n" for the integer
// filters (16, 18), "null" for no value.
QStringList filtersOf(const MetadataSearchMediaRequest& request)
{
    QStringList filters;
    for (uint32_t i = 0; i < request.filterCount; ++i) {
        const MetadataSearchFilter& filter = request.filters[i];
        QString value = QStringLiteral("null");
        if (filter.value && (filter.type == METADATA_FILTER_CREATE_FLAG || filter.type == METADATA_FILTER_GROUP_ID))
            value = QStringLiteral("#%1").arg(*static_cast<const uint32_t*>(filter.value));
        else if (filter.value)
            value = QString::fromUtf8(static_cast<const char*>(filter.value));
        filters.append(QStringLiteral("%1/%2/%3/%4").arg(filter.type).arg(filter.op).arg(filter.valueLength).arg(value));
    }
    return filters;
}

struct ConditionCase {
    const char* name;
    MakeRequest make;
    uint32_t listType;
    QStringList filters;
    const char* sort;         // key/direction
    int storage;
    uint32_t grouping;
    const char* candidates;   // types, comma-separated
    int count;
    int start;
    QByteArray trace;
};

MakeRequest music(QString artist, QString album, QString genre, QString composer,
                  std::function<MetadataSearchMediaRequest*(Condition&)> get)
{
    return [=](std::unique_ptr<Condition>& condition) {
        condition = std::make_unique<Condition>(artist, album, genre, composer, 1);
        return get(*condition);
    };
}

MakeRequest group(unsigned int id, uint32_t type)
{
    return [=](std::unique_ptr<Condition>& condition) {
        condition = std::make_unique<Condition>(id, MetadataGroupType(type), 2);
        return condition->getRequest(3, 10, false);
    };
}

MakeRequest video(QString type, QString date)
{
    return [=](std::unique_ptr<Condition>& condition) {
        condition = std::make_unique<Condition>(type, date, 0);
        return condition->getRequest(0, 1, false);
    };
}

const QString kNull;

} // namespace

TEST(MP_AufSearchConditionTest, EachSelection_AsksTheDatabaseForItsFiltersSortAndPage)
{
    const auto items = [](int start, int count) {
        return [=](Condition& c) { return c.getRequest(start, count, false); };
    };
    // name, request, list type, filters, sort, storage, grouping, candidates, count, start, trace
    const ConditionCase cases[] = {
        {"every song", music(kNull, kNull, kNull, kNull, items(20, 10)),
         0u, {"2/2/0/null"}, "0/0", 1, 0, "0,2", 10, 20, ""},
        {"all four, ids only",
         music("Aurora Lane", QString::fromUtf8("Kvöldljóð"), "Pop", "Edda",
               [](Condition& c) { return c.getRequest(0, 0, true); }),
         0u, {"9/0/12/Aurora Lane", QString::fromUtf8("12/0/13/Kvöldljóð"), "11/0/4/Pop", "10/0/5/Edda"},
         "9/0", 1, 0, "0", 0, 0, ""},
        {"empty album is a filter but sorts by title", music(kNull, "", kNull, kNull, items(0, 5)),
         0u, {"12/0/1/"}, "0/0", 1, 0, "0,2", 5, 0, ""},
        {"album restriction adds one filter",
         music("Aurora Lane", kNull, kNull, kNull,
               [](Condition& c) {
                   c.setAlbum("Paper Boats");
                   return c.getRequest(4, 2, false);
               }),
         0u, {"9/0/12/Aurora Lane", "12/0/12/Paper Boats"}, "0/0", 1, 0, "0,2", 2, 4, ""},
        {"null album lifts the restriction",
         music("Aurora Lane", kNull, kNull, kNull,
               [](Condition& c) {
                   c.setAlbum("Paper Boats");
                   c.setAlbum(kNull);
                   return c.getRequest(0, 10, false);
               }),
         0u, {"9/0/12/Aurora Lane"}, "0/0", 1, 0, "0,2", 10, 0, ""},
        {"album names replace the restriction",
         music("Aurora Lane", kNull, kNull, kNull,
               [](Condition& c) {
                   c.setAlbum("Paper Boats");
                   return c.getAlbumsRequest(1, 3);
               }),
         0u, {"9/0/12/Aurora Lane", "12/2/0/null"}, "8/0", 1, 1, "20", 3, 1, ""},
        {"the restriction returns with setAlbum",
         music(kNull, kNull, "Pop", kNull,
               [](Condition& c) {
                   c.getAlbumsRequest(0, 0);
                   c.setAlbum("Afterglow");
                   return c.getRequest(0, 10, false);
               }),
         0u, {"11/0/4/Pop", "12/0/10/Afterglow"}, "0/0", 1, 0, "0,2", 10, 0, ""},
        {"the restriction outlives an album-name request",
         music("Aurora Lane", kNull, kNull, kNull,
               [](Condition& c) {
                   c.setAlbum("Paper Boats");
                   c.getAlbumsRequest(0, 0);
                   return c.getRequest(0, 10, false);
               }),
         0u, {"9/0/12/Aurora Lane", "12/0/12/Paper Boats"}, "0/0", 1, 0, "0,2", 10, 0, ""},
        {"the album of one entry", music(kNull, kNull, "Pop", kNull, [](Condition& c) {
             return c.getEntryAlbumRequest(5);
         }),
         0u, {"11/0/4/Pop"}, "0/0", 1, 0, "20", 1, 5, ""},
        {"user group", group(7, 0), 5u, {"18/0/4/#7"}, "11/0", 2, 0, "0,2", 10, 3, ""},
        {"play history", group(2, 2), 7u, {"18/0/4/#2"}, "11/0", 2, 0, "0,2", 10, 3, ""},
        {"unsupported group type searches a user group", group(9, 1), 5u, {"18/0/4/#9"}, "11/0", 2, 0, "0,2", 10, 3,
         "[MP_AufSearchCondition] Error!!! Unsupported group type: 1\n"},
        {"all videos", video("All", kNull), 2u, {"2/2/0/null"}, "10/1", 0, 0, "0,2", 1, 0, ""},
        {"captured videos", video("Captured", kNull), 2u, {"16/0/4/#0"}, "10/1", 0, 0, "0,2", 1, 0, ""},
        {"downloaded videos", video("Downloaded", kNull), 2u, {"16/0/4/#1"}, "10/1", 0, 0, "0,2", 1, 0, ""},
        {"videos by date", video("By Date", "2024-05"), 2u, {"14/0/8/2024-05"}, "10/1", 0, 0, "0,2", 1, 0, ""},
        {"selection types are case-sensitive", video("all", kNull), 2u, {}, "10/1", 0, 0, "0,2", 1, 0,
         "[MP_AufSearchCondition] Error!!! Invalid selectionType: all!\n"},
    };
    for (const ConditionCase& row : cases) {
        SCOPED_TRACE(row.name);
        TraceCapture trace;
        std::unique_ptr<Condition> condition;
        const MetadataSearchMediaRequest* request = row.make(condition);
        ASSERT_NE(request, nullptr);
        ASSERT_EQ(request->listTypeCount, 1u);
        EXPECT_EQ(request->listTypes[0], row.listType);
        EXPECT_EQ(filtersOf(*request), row.filters);
        ASSERT_EQ(request->sortCount, 1u);
        EXPECT_EQ(QStringLiteral("%1/%2").arg(request->sort->key).arg(request->sort->direction), row.sort);
        EXPECT_EQ(request->storageLocation, row.storage);
        EXPECT_EQ(request->reserved1, 0u);
        EXPECT_EQ(request->groupingFlag, row.grouping);
        QStringList candidates;
        for (uint32_t i = 0; i < request->candidateCount; ++i)
            candidates.append(QString::number(request->candidates[i]));
        EXPECT_EQ(candidates.join(','), row.candidates);
        EXPECT_EQ(request->resultCount, row.count);
        EXPECT_EQ(request->firstIndex, row.start);
        EXPECT_EQ(request->reserved2, 1u);
        EXPECT_EQ(trace.text(), row.trace);
    }
}
