// A playing list while another program changes the database under it, many
// times over: the list reads the database as of the last change it handled.

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QMap>
#include <QSet>

#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/database/SqliteTransaction.h"
#include "lists/MP_AufContext.h"
#include "lists/MP_AufList.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

namespace {

class MetadataSnapshotTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        m_other = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(m_other);
        MP_AufContext::shuffle = MP_AufContext::shuffleSetting = 0;
        MP_AufContext::isRepeat = false;
    }

    // Titles sort as their numbers: "000100" < "000105" < "000110".
    quint32 add(int number)
    {
        const QString title = QStringLiteral("%1").arg(number, 6, 10, QLatin1Char('0'));
        return m_other->addMedia(song(QStringLiteral("/m/%1.mp3").arg(title)).title(title));
    }

    static int numberOf(const QString& path) { return QFileInfo(path).completeBaseName().toInt(); }

    std::unique_ptr<MediaDatabase> m_other;   // another program's connection
};

TEST_F(MetadataSnapshotTest, ManyChangesWhileStepping_OrderNeverGoesBackAndEverySongExists)
{
    // Songs 1000, 2000, ... 121000; the changes add songs between them and remove
    // songs behind and ahead of the playing one.
    QMap<int, quint32> stored;
    QSet<int> everStored;
    const auto store = [&](int number) {
        if (everStored.contains(number))
            return;   // its path is taken
        stored.insert(number, add(number));
        everStored.insert(number);
    };
    for (int number = 1000; number <= 121000; number += 1000)
        store(number);
    MP_AufList list;
    int last = numberOf(list.getCurrent());
    ASSERT_EQ(last, 1000);
    for (int round = 0; round < 40; ++round) {
        // One batch: two songs come just before the playing one and one just
        // after it, the first song goes; every later position moves by one.
        const std::unique_ptr<SqliteTransaction> batch = m_other->beginTransaction();
        for (const int number : {last - 2, last - 1, last + 1})
            store(number);
        ASSERT_TRUE(m_other->removeMedia(stored.first()));
        stored.remove(stored.firstKey());
        ASSERT_TRUE(batch->commit());
        // Steps before the list heard of the batch (of several batches, so
        // that steps leave the list's window of entries), and after it handled them.
        const bool isHandled = round % 4 == 3;
        for (int phase = 0; phase < 3; ++phase) {
            if (phase == 2 && isHandled) {
                ASSERT_TRUE(waitUntil([&] { return list.count() == unsigned(stored.size()); }, 3000)) << "round " << round;
            }
            ASSERT_TRUE(list.hasNext()) << "round " << round;
            list.skipSteps(1);
            const QString path = list.getCurrent();
            const int now = numberOf(path);
            ASSERT_GT(now, last) << "round " << round << " phase " << phase << ": the order went backwards from " << last << " at " << list.getCurrentIndex();
            if (phase == 2 && isHandled) {
                ASSERT_EQ(list.getCurrentIndex(), stored.keys().indexOf(now)) << "handled: the database's positions";
            }
            ASSERT_TRUE(everStored.contains(now)) << "a song that never was: " << qPrintable(path);
            last = now;
        }
    }
}

} // namespace
