#include "host/platform/media/scanner/MediaScanner.h"

#include <gtest/gtest.h>

#include <QtEndian>
#include <QDir>
#include <QFile>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <tuple>

#include "host/platform/phone/HostStorage.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/tools/samplegen/SampleCatalogue.h"
#include "host/tools/samplegen/SampleTagger.h"
#include "host/tools/samplegen/WavSynth.h"
#include "tests/host/platform/media/OtherProgramSql.h"
#include "tests/support/TestEnvironment.h"

namespace {

// A 16-bit mono PCM WAV of a few silent samples.
QByteArray tinyWav()
{
    return WavSynth(8000).wavFile(QByteArray(64, '\0'));
}

// A mu-law WAV without a "fact" chunk, as recorders write them: TagLib reads it
// but knows no sample rate for it; it plays.
QByteArray muLawWav()
{
    QByteArray wav = WavSynth(8000).wavFile(QByteArray(800, char(0xFF)));
    wav[20] = 7;                                    // the format: mu-law
    qToLittleEndian<quint32>(8000, wav.data() + 28);   // bytes a second
    wav[32] = 1;                                    // bytes a sample
    wav[34] = 8;                                    // bits a sample
    return wav;
}

// Moves a file's modification time, as an edit made a minute later would.
void touchLater(const QString& path)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QFileInfo(path).lastModified().addSecs(60), QFileDevice::FileModificationTime));
}

class MediaScannerTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        ASSERT_TRUE(QDir().mkpath(dataPath("library")));
        m_root = QFileInfo(dataPath("library")).canonicalFilePath();
        m_database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(m_database);
        m_scanner = std::make_unique<MediaScanner>(*m_database);
        m_scanner->setMessageHandler([this](const QString& message) { m_messages.append(message); });

        const SampleSong rain{QString::fromUtf8("Ансамбль"), QString::fromUtf8("Kvöldljóð"), "Rain", "Folk",
                              QString::fromUtf8("Sigrún"), 2, "2003-03-14"};
        write("Music/rain.wav", SampleTagger::tagged(tinyWav(), rain));
        write("Music/voice memo.wav", tinyWav());
        // The start of a 3GP movie: TagLib has no reader for 3GP, so it is taken by its name.
        write("Camera/Captured/clip.3gp", QByteArray::fromHex("0000001866747970336770340000000069736f6d33677034"));
        write("Downloads/song.wav", tinyWav());
        write("notes.txt", "not media");
        write("Lists/evening.m3u", "#EXTM3U\n../Music/rain.wav\n# a comment\n\n" + path("Downloads/song.wav").toUtf8()
                                                 + "\nhttp://radio.example/live\nmissing.wav\n../Music/voice memo.wav\n");
        ASSERT_TRUE(QFile::link(path("Music/nowhere.wav"), path("Music/gone.wav")));
    }

    QString path(const QString& relative) const { return m_root + '/' + relative; }
    void write(const QString& relative, const QByteArray& bytes) const { writeDataFile("library/" + relative, bytes); }
    MediaRecord stored(const QString& relative) const
    {
        const std::optional<MediaRecord> record = m_database->mediaByPath(path(relative));
        EXPECT_TRUE(record) << qPrintable(relative);
        return record.value_or(MediaRecord());
    }
    QStringList playList() const
    {
        QStringList titles;
        const std::optional<MediaGroup> group = m_database->groupBySource(path("Lists/evening.m3u"));
        for (const quint32 id : m_database->groupMembers(group ? group->id : 0))
            titles.append(m_database->mediaById(id)->title);
        return titles;
    }

    QString m_root;
    std::unique_ptr<MediaDatabase> m_database;
    std::unique_ptr<MediaScanner> m_scanner;
    QStringList m_messages;
};

} // namespace

TEST_F(MediaScannerTest, ReadsTagsFlagsAndPlayLists)
{
    // Files with a media name and no such content: never added, so never played and failed.
    write("Music/notes.mp3", "not really a song");
    write("Camera/clip.mp4", "");
    write("Music/phone call.wav", muLawWav());
    const MediaScanSummary summary = m_scanner->scanFolders({m_root});
    EXPECT_EQ(summary.text(), "5 added, 0 updated, 0 removed, 0 unchanged, 3 skipped; play lists: 1 imported, 0 removed");
    EXPECT_EQ(stored("Music/phone call.wav").title, "phone call");
    EXPECT_EQ(m_messages.filter("content").join('\n').toStdString(),
              ("cannot read " + m_root + "/Camera/clip.mp4: its content is not that of a .mp4 file; skipped\n"
               "cannot read " + m_root + "/Music/notes.mp3: its content is not that of a .mp3 file; skipped").toStdString());

    const MediaRecord rain = stored("Music/rain.wav");
    EXPECT_EQ(QStringList({rain.title, rain.artist, rain.album, rain.genre, rain.composer, rain.date}),
              QStringList({"Rain", QString::fromUtf8("Ансамбль"), QString::fromUtf8("Kvöldljóð"), "Folk",
                           QString::fromUtf8("Sigrún"), "2003-03-14"}));
    EXPECT_EQ(std::tuple(rain.track, rain.createdBy, rain.storage), std::tuple(2, -1, 0));

    // Untagged files are named after themselves; the folders say who made them.
    const MediaRecord memo = stored("Music/voice memo.wav");
    EXPECT_EQ(std::tuple(memo.title, memo.artist), std::tuple(QString("voice memo"), QString()));
    const MediaRecord clip = stored("Camera/Captured/clip.3gp");
    EXPECT_EQ(std::tuple(clip.kind, clip.createdBy), std::tuple(MediaKind::Video, 0));
    const MediaRecord download = stored("Downloads/song.wav");
    EXPECT_EQ(std::tuple(download.title, download.createdBy), std::tuple(QString("song"), 1));

    EXPECT_EQ(playList(), QStringList({"Rain", "song", "voice memo"}));
    // The link that leads nowhere and the play list's missing entry; the stream is no file to miss.
    EXPECT_EQ(m_messages.filter(path("Music/gone.wav")).size() + m_messages.filter("missing.wav").size(), 2);
    EXPECT_EQ(m_messages.size(), 4) << qPrintable(m_messages.join('\n'));
}

TEST_F(MediaScannerTest, RescansChangeOnlyWhatChanged_ChangedFilesAreReadAgainAndRemovedOnesLeave)
{
    m_scanner->scanFolders({m_root});
    const MediaRecord before = stored("Music/rain.wav");
    const quint32 group = m_database->groupBySource(path("Lists/evening.m3u"))->id;
    const MediaScanSummary again = m_scanner->scanFolders({m_root});
    EXPECT_EQ(again.text(), "0 added, 0 updated, 0 removed, 4 unchanged, 1 skipped; play lists: 0 imported, 0 removed");
    EXPECT_EQ(m_database->groupBySource(path("Lists/evening.m3u"))->id, group);

    SampleSong remastered;
    remastered.title = QStringLiteral("Rain, remastered");
    write("Music/rain.wav", SampleTagger::tagged(tinyWav(), remastered));
    touchLater(path("Music/rain.wav"));
    ASSERT_TRUE(QFile::remove(path("Downloads/song.wav")));
    // A stored file that no longer reads keeps its object (its play lists, its buy flag).
    write("Music/voice memo.wav", "being rewritten");
    touchLater(path("Music/voice memo.wav"));

    const MediaScanSummary summary = m_scanner->scanFolders({m_root});
    EXPECT_EQ(summary.text(), "0 added, 1 updated, 1 removed, 1 unchanged, 2 skipped; play lists: 0 imported, 0 removed");
    EXPECT_EQ(std::tuple(stored("Music/rain.wav").id, stored("Music/rain.wav").title),
              std::tuple(before.id, QString("Rain, remastered")));
    // The removed song leaves the play list with its object.
    EXPECT_EQ(playList(), QStringList({"Rain, remastered", "voice memo"}));

    ASSERT_TRUE(QFile::remove(path("Lists/evening.m3u")));
    EXPECT_EQ(m_scanner->scanFolders({m_root}).playListsRemoved, 1);
}

TEST_F(MediaScannerTest, SingleFilesAndTheMemoryCard)
{
    const QString onCard = writeDataFile("mmca1/Music/card.wav", tinyWav());
    ASSERT_EQ(onCard, HostStorage::memoryCardPath() + "/Music/card.wav");
    EXPECT_EQ(m_scanner->scanFile(onCard), MediaScanner::FileOutcome::Added);
    EXPECT_EQ(m_scanner->scanFile(onCard), MediaScanner::FileOutcome::Unchanged);
    EXPECT_EQ(m_database->mediaByPath(onCard)->storage, HostStorage::kMemoryCard);
    EXPECT_EQ(HostStorage::storageOf(HostStorage::memoryCardPath() + "-old/card.wav"), HostStorage::kPhoneMemory)
        << "a folder beside the card whose name begins with the card's";
    EXPECT_EQ(m_scanner->scanFile(path("notes.txt")), MediaScanner::FileOutcome::NotMedia);
    EXPECT_EQ(m_scanner->scanFile(path("Music/gone.wav")), MediaScanner::FileOutcome::Skipped);
    EXPECT_TRUE(m_scanner->removeFile(onCard));
    EXPECT_FALSE(m_scanner->removeFile(onCard));
}

TEST_F(MediaScannerTest, NamesThatAreNotUtf8AreReportedAsSkipped)
{
    const std::string root = QFile::encodeName(m_root).toStdString();
    std::ofstream(root + "/Music/caf\xe9.wav") << "song";
    std::ofstream(root + "/Music/\xff.txt") << "not media";
    ASSERT_TRUE(QDir().mkpath(path("Music/x")));
    ASSERT_EQ(::rename((root + "/Music/x").c_str(), (root + "/Music/Alb\xfcm").c_str()), 0);
    std::ofstream(root + "/Music/Alb\xfcm/track.wav") << "song";

    const MediaScanSummary summary = m_scanner->scanFolders({m_root});
    EXPECT_EQ(summary.text(), "4 added, 0 updated, 0 removed, 0 unchanged, 3 skipped; play lists: 1 imported, 0 removed");
    EXPECT_EQ(m_messages.filter("UTF-8").join('\n').toStdString(),
              ("cannot read the folder " + m_root + "/Music/Alb\\xfcm: its name is not valid UTF-8; "
               "skipped with all it holds\n"
               "cannot read " + m_root + "/Music/caf\\xe9.wav: its name is not valid UTF-8; skipped").toStdString());
    // Qt cannot see these names to remove them with the folder.
    std::filesystem::remove_all(root + "/Music/Alb\xfcm");
    std::filesystem::remove(root + "/Music/caf\xe9.wav");
    std::filesystem::remove(root + "/Music/\xff.txt");
}

TEST_F(MediaScannerTest, AFailedCommitCountsNothingAsAdded)
{
    // A trap another program could have set: every new object breaks a deferred
    // constraint, which only the commit checks.
    ASSERT_TRUE(runAsOtherProgram(
        "CREATE TABLE trap_parent (id INTEGER PRIMARY KEY);"
        "CREATE TABLE trap (ref INTEGER REFERENCES trap_parent(id) DEFERRABLE INITIALLY DEFERRED);"
        "CREATE TRIGGER trap_media AFTER INSERT ON media BEGIN INSERT INTO trap VALUES (-1); END;"));

    const MediaScanSummary summary = m_scanner->scanFolders({m_root});
    EXPECT_EQ(summary.text(), "0 added, 0 updated, 0 removed, 0 unchanged, 5 skipped; play lists: 0 imported, 0 removed");
    EXPECT_EQ(m_messages.filter("did not take").join('\n').toStdString(),
              "the database did not take the last changes (4 added, 0 updated, 0 removed, 0 play lists imported, "
              "0 removed); none of them is stored\n"
              // The play list's entries are read again for it, and fall into the trap too.
              "the database did not take the last changes (0 added, 0 updated, 0 removed, 1 play lists imported, "
              "0 removed); none of them is stored");
    EXPECT_EQ(m_database->mediaCount(), 0);
    EXPECT_FALSE(m_database->isInTransaction()) << "the failed batch is rolled back, not left open";
}
