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

// The rest of the request: "list TYPE sort KEY/DIRECTION storage N grouping N
// take TYPE,TYPE page FIRST+COUNT".
QString shapeOf(const MetadataSearchMediaRequest& request)
{
    QStringList candidates;
    for (uint32_t i = 0; i < request.candidateCount; ++i)
        candidates.append(QString::number(request.candidates[i]));
    return QStringLiteral("list %1 sort %2/%3 storage %4 grouping %5 take %6 page %7+%8")
        .arg(request.listTypes[0]).arg(request.sort->key).arg(request.sort->direction).arg(request.storageLocation)
        .arg(request.groupingFlag).arg(candidates.join(',')).arg(request.firstIndex).arg(request.resultCount);
}

struct ConditionCase {
    const char* name;
    MakeRequest make;
    QStringList filters;
    QByteArray shape;
    QByteArray trace = {};  // what is traced, if anything
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
    // The library's songs sorted by title, a page at a time; the videos all at once, newest first.
    const auto songs = [](const char* page) {
        return QByteArray("list 0 sort 0/0 storage 1 grouping 0 take 0,2 page ") + page;
    };
    const QByteArray videos = "list 2 sort 10/1 storage 0 grouping 0 take 0,2 page 0+1";
    const ConditionCase cases[] = {
        {"every song", music(kNull, kNull, kNull, kNull, items(20, 10)), {"2/2/0/null"}, songs("20+10")},
        {"all four, ids only",
         music("Aurora Lane", QString::fromUtf8("Kvöldljóð"), "Pop", "Edda",
               [](Condition& c) { return c.getRequest(0, 0, true); }),
         {"9/0/12/Aurora Lane", QString::fromUtf8("12/0/13/Kvöldljóð"), "11/0/4/Pop", "10/0/5/Edda"},
         "list 0 sort 9/0 storage 1 grouping 0 take 0 page 0+0"},
        {"empty album is a filter but sorts by title", music(kNull, "", kNull, kNull, items(0, 5)), {"12/0/1/"},
         songs("0+5")},
        {"null album lifts the restriction",
         music("Aurora Lane", kNull, kNull, kNull,
               [](Condition& c) {
                   c.setAlbum("Paper Boats");
                   c.setAlbum(kNull);
                   return c.getRequest(0, 10, false);
               }),
         {"9/0/12/Aurora Lane"}, songs("0+10")},
        {"album names replace the restriction",
         music("Aurora Lane", kNull, kNull, kNull,
               [](Condition& c) {
                   c.setAlbum("Paper Boats");
                   return c.getAlbumsRequest(1, 3);
               }),
         {"9/0/12/Aurora Lane", "12/2/0/null"}, "list 0 sort 8/0 storage 1 grouping 1 take 20 page 1+3"},
        {"the restriction outlives an album-name request",
         music("Aurora Lane", kNull, kNull, kNull,
               [](Condition& c) {
                   c.setAlbum("Paper Boats");
                   c.getAlbumsRequest(0, 0);
                   return c.getRequest(0, 10, false);
               }),
         {"9/0/12/Aurora Lane", "12/0/12/Paper Boats"}, songs("0+10")},
        {"the album of one entry", music(kNull, kNull, "Pop", kNull, [](Condition& c) {
             return c.getEntryAlbumRequest(5);
         }),
         {"11/0/4/Pop"}, "list 0 sort 0/0 storage 1 grouping 0 take 20 page 5+1"},
        {"user group", group(7, 0), {"18/0/4/#7"}, "list 5 sort 11/0 storage 2 grouping 0 take 0,2 page 3+10"},
        {"play history", group(2, 2), {"18/0/4/#2"}, "list 7 sort 11/0 storage 2 grouping 0 take 0,2 page 3+10"},
        {"unsupported group type searches a user group", group(9, 1), {"18/0/4/#9"},
         "list 5 sort 11/0 storage 2 grouping 0 take 0,2 page 3+10",
         "[MP_AufSearchCondition] Error!!! Unsupported group type: 1\n"},
        {"all videos", video("All", kNull), {"2/2/0/null"}, videos},
        {"captured videos", video("Captured", kNull), {"16/0/4/#0"}, videos},
        {"downloaded videos", video("Downloaded", kNull), {"16/0/4/#1"}, videos},
        {"videos by date", video("By Date", "2024-05"), {"14/0/8/2024-05"}, videos},
        {"selection types are case-sensitive", video("all", kNull), {}, videos,
         "[MP_AufSearchCondition] Error!!! Invalid selectionType: all!\n"},
    };
    for (const ConditionCase& row : cases) {
        SCOPED_TRACE(row.name);
        TraceCapture trace;
        std::unique_ptr<Condition> condition;
        const MetadataSearchMediaRequest* request = row.make(condition);
        ASSERT_NE(request, nullptr);
        EXPECT_EQ(filtersOf(*request), row.filters);
        EXPECT_EQ(shapeOf(*request).toUtf8(), row.shape);
        EXPECT_EQ(trace.text(), row.trace);
    }
}
