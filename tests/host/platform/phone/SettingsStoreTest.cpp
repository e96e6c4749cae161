#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "host/platform/HostDataDir.h"
#include "platform/SETUP_SET_Manager.h"
#include "tests/support/TestEnvironment.h"

namespace {

class SettingsStoreTest : public TestEnvironment {
protected:
    void TearDown() override
    {
        qunsetenv("MP_DATA_READ_ONLY");
        TestEnvironment::TearDown();
    }
};

TEST_F(SettingsStoreTest, ReadOnlyDataFolder_WriteFailsAndKeepsTheStoredValue)
{
    {
        SETUP_SET_Manager store(7, false);
        ASSERT_TRUE(store.setSettingInfo("MediaControlItem", "MusicShuffle", 1));
    }
    const QString file = HostDataDir::file("settings/app-7.ini");
    QFile stored(file);
    ASSERT_TRUE(stored.open(QIODevice::ReadOnly));
    const QByteArray bytesBefore = stored.readAll();
    stored.close();

    qputenv("MP_DATA_READ_ONLY", "1");
    SETUP_SET_Manager store(7, false);
    EXPECT_FALSE(store.setSettingInfo("MediaControlItem", "MusicShuffle", 2));
    EXPECT_FALSE(store.setSettingInfo("MediaControlItem", "MusicRepeat", true));
    int value = -1;
    EXPECT_TRUE(store.getSettingInfo("MediaControlItem", "MusicShuffle", value, 0));
    EXPECT_EQ(value, 1) << "a refused write is not answered back as if saved";
    bool repeat = true;
    EXPECT_FALSE(store.getSettingInfo("MediaControlItem", "MusicRepeat", repeat, false));
    EXPECT_EQ(journalLines("settings", QString()).size(), 1) << "only the first write is journaled";

    ASSERT_TRUE(stored.open(QIODevice::ReadOnly));
    EXPECT_EQ(stored.readAll(), bytesBefore);
    EXPECT_EQ(QDir(HostDataDir::file("settings")).entryList(QDir::Files), QStringList{"app-7.ini"})
        << "no temporary file left";
}

} // namespace
