#include "host/platform/phone/HostPhone.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include "host/platform/HostDataDir.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/phone/HostProfileFile.h"
#include "host/platform/phone/HostStorage.h"
#include "platform/Metadata.h"
#include "platform/SETUP_SET_Manager.h"
#include "platform/STUFF_Global.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

namespace {

using HostProfileTest = TestEnvironment;

bool bit(unsigned short number)
{
    bool value = false;
    EXPECT_TRUE(SETUP_Utility::getFlexBit(number, value));
    return value;
}

TEST_F(HostProfileTest, Parse_TakesBitsAndItems_SkipsWhatDoesNotHold)
{
    const HostProfileFile::Content content = HostProfileFile::parse("; comment\r\n"
                                                                    "orphan = 1\n"
                                                                    "[FlexBits]\n"
                                                                    "149 = off   # no blog\n"
                                                                    "492=ON\n"
                                                                    "70000 = on\n"
                                                                    "12 = maybe\n"
                                                                    "[Network\n"
                                                                    "[MF_FlexNumber]\n"
                                                                    "StorageNumber = 1\n"
                                                                    "Name = a#b ; c\n"
                                                                    "no equals sign\n"
                                                                    + QByteArray(2000, 'a') + "=1\n");
    EXPECT_EQ(content.flexBits, (QHash<int, bool>{{149, false}, {492, true}}));
    EXPECT_EQ(content.items, (QHash<QString, QString>{{"MF_FlexNumber/StorageNumber", "1"}, {"MF_FlexNumber/Name", "a#b"}}));
    EXPECT_EQ(content.warnings, (QStringList{"line 2: a value before any section", "line 6: not a feature bit number",
                                             "line 7: not on or off", "line 8: not a section name",
                                             "line 12: not key = value",
                                             "line 13: longer than 1024 characters"}));
    // Bytes that are no text at all give nothing, and no crash.
    EXPECT_TRUE(HostProfileFile::parse(QByteArray("\xff\xfe[\0=", 5)).flexBits.isEmpty());
}

TEST_F(HostProfileTest, Phone_StartsFromDefaultsThenTheFile_ScriptsChangeBitsAfterwards)
{
    // The defaults themselves: PrepareDataFolder_GivesANewFolderItsProfileAndCardOnce.
    QFile file(HostPhone::profilePath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[FlexBits]\n149 = off\n7 = on\n[MF_FlexNumber]\nStorageNumber = 1\n");
    file.close();
    HostPhone::reset();
    EXPECT_FALSE(bit(149));
    EXPECT_TRUE(bit(7));
    EXPECT_TRUE(bit(512)) << "a bit the file does not name keeps its default";
    EXPECT_EQ(getProfileItem("MF_FlexNumber", "StorageNumber"), "1");
}

TEST_F(HostProfileTest, SettingsRewrite_IsStampedAfterTheFileItReplaced_SoThatOtherProcessesReadIt)
{
    const QString store = HostDataDir::file(QStringLiteral("settings/app-71.ini"));
    ASSERT_TRUE(SETUP_SET_Manager(71, false).setSettingInfo("MediaControlItem", "MusicShuffle", 1));
    // A stamp the next write does not reach by itself, as within one tick of the clock. (Near the
    // file's own: a 32-bit processor's file times end in 2038.)
    const QDateTime ahead = QFileInfo(store).lastModified().addSecs(3600);
    QFile file(store);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(ahead, QFileDevice::FileModificationTime));
    ASSERT_TRUE(SETUP_SET_Manager(71, false).setSettingInfo("MediaControlItem", "MusicShuffle", 0));
    EXPECT_EQ(QFileInfo(store).lastModified().toString(Qt::ISODateWithMs).toStdString(),
              ahead.addMSecs(1).toString(Qt::ISODateWithMs).toStdString());
}

TEST_F(HostProfileTest, PrepareDataFolder_GivesANewFolderItsProfileAndCardOnce)
{
    EXPECT_FALSE(STUFF_Global::hasMMCSDCard(true));
    HostPhone::prepareDataFolder();
    EXPECT_TRUE(STUFF_Global::hasMMCSDCard(true));
    // The written profile reads back as the defaults, without a warning.
    const HostProfileFile::Content written = HostProfileFile::read(HostPhone::profilePath());
    EXPECT_EQ(written.flexBits, (QHash<int, bool>{{149, true}, {492, false}, {512, true}}));
    EXPECT_TRUE(written.warnings.isEmpty());

    // A card taken out stays out: the folder is no longer new.
    ASSERT_TRUE(QDir(HostStorage::memoryCardPath()).removeRecursively());
    HostPhone::prepareDataFolder();
    EXPECT_FALSE(STUFF_Global::hasMMCSDCard(false));
}

TEST_F(HostProfileTest, StorageQueries_PreloadFolderMediaFilesAndRingtones)
{
    const QString preload = MYSTUFF_FixedFolder::preloadPath();
    EXPECT_TRUE(MYSTUFF_FixedFolder::isPreloadFolder(preload));
    EXPECT_FALSE(MYSTUFF_FixedFolder::isPreloadFolder(preload + "ed"));

    const QString small = writeDataFile("small.mp3", QByteArray(STUFF_Global::kMaxRingtoneBytes, 'x'));
    const QString large = writeDataFile("large.mp3", QByteArray(STUFF_Global::kMaxRingtoneBytes + 1, 'x'));
    const QString clip = writeDataFile("clip.3gp");
    const QString unknown = writeDataFile("unknown.mp3");
    const QString gone = dataPath("gone.mp3");
    {
        auto database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(database);
        for (const QString& path : {small, large, gone})
            ASSERT_NE(database->addMedia(song(path)), 0u);
        ASSERT_NE(database->addMedia(song(clip).video()), 0u);
    }
    EXPECT_EQ(isMediaFile(small.toUtf8().constData()), 1);
    EXPECT_EQ(isMediaFile(unknown.toUtf8().constData()), 0);
    EXPECT_EQ(isMediaFile(nullptr), 0);

    const STUFF_Global& storage = *STUFF_Global::instance();
    // Only the small one: the others are too large, a video, not in the media database, stored but missing.
    QList<bool> ringTones;
    for (const QString& path : {small, large, clip, unknown, gone})
        ringTones << storage.canAsRingTone(path);
    EXPECT_EQ(ringTones, QList<bool>({true, false, false, false, false}));
}

} // namespace
