// The media browser's view of the player, end to end through the engine: its
// questions answered, and the play history it shows filled song by song.

#include <QJsonArray>
#include <QDataStream>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/StreamEncoding.h"
#include "tests/scenarios/ScenarioRun.h"

namespace {

const QString kSong = QStringLiteral("Music/Aurora Lane/Northern Lights/01 First Light.wav");
const QStringList kPlayAfterglow{"--action", "PlayMusicListInMediaplayer", "isAllArtist=1", "isAllAlbum=0",
                                 "Album=Afterglow", "isAllGenre=1", "isAllComposer=1", "FirstIndex=0",
                                 "StorageLocation=2"};

class BrowserScenarioTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(scenario.scanSampleLibrary()); }

    void run(const char* script, const QStringList& arguments)
    {
        ASSERT_EQ(scenario.run(ScenarioRun::script(QString::fromLatin1(script)), arguments), 0)
            << qPrintable(scenario.errorOutput());
    }

    // "message data" of every message to the browser, in order.
    std::vector<std::string> browserMessages() const
    {
        std::vector<std::string> messages;
        for (const QJsonObject& line : scenario.journal()) {
            if (line.value("kind") == "qcop" && line.value("channel") == "/vemo/apps/mediaplayer")
                messages.push_back((line.value("message").toString() + ' ' + line.value("data").toString())
                                       .toStdString());
        }
        return messages;
    }

    ScenarioRun scenario;
};

// A stream string as the browser reads it: byte count, then UTF-16BE.
std::string encoded(const QString& text)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    MP_SetPayloadFormat(stream);
    stream << text;
    return bytes.toHex().toStdString();
}

const std::string kSystemItem = "NowPlayingSystemItem(QString, int, QString, QString, QString, QString) ";
const std::string kNull = "ffffffff";

TEST_F(BrowserScenarioTest, StatusQuery_BeforeAListTheStateAlone_AfterItsFirstSongThatSongThenTheState)
{
    run("browser_status.mps", {kSong});
    const std::string secondSong =
        kSystemItem + encoded(ScenarioRun::sampleLibrary() + "/Music/Aurora Lane/Northern Lights/02 Harbour Wind.wav")
        + "00000001" + encoded("Aurora Lane") + kNull + kNull + kNull;
    EXPECT_EQ(browserMessages(), (std::vector<std::string>{
                                     "MediaplayerStarted() ",
                                     "NowplayingState(int) 00000005",  // the file loaded
                                     "NowplayingState(int) 00000001",  // and playing
                                     "NowplayingState(int) 00000001",  // the first answer: no song of a list yet
                                     secondSong,                       // the list's first song
                                     secondSong,                       // the second answer, the same bytes
                                     "NowplayingState(int) 00000001",
                                     "MediaplayerExited() ",
                                 }));
    EXPECT_EQ(scenario.argsOf("metadata", "saveLastPlayedSong"),
              (QList<QJsonArray>{{ScenarioRun::sampleLibrary() + "/Music/Aurora Lane/Northern Lights/02 Harbour Wind.wav", 1}}));
}

TEST_F(BrowserScenarioTest, ThreeSongsPlayed_EachInTheHistoryOnceAndAnnouncedOnce)
{
    run("browser_history.mps", kPlayAfterglow);
    const QList<QJsonArray> added = scenario.argsOf("metadata", "metadataAddItemsIntoGroup");
    ASSERT_EQ(added.size(), 3) << "one write a song, whatever the number of time reports";
    QStringList tracks;
    for (const QJsonArray& args : added) {
        const QJsonObject record = args.at(0).toObject();
        EXPECT_EQ(record.value("groupId"), 2) << "the audio history";
        tracks << QString::number(record.value("items").toArray().at(0).toObject().value("trackNumber").toInt());
    }
    EXPECT_EQ(tracks.join(' ').toStdString(), "1 2 3");

    QStringList positions;
    for (const QJsonArray& args : scenario.argsOf("metadata", "saveLastPlayedSong"))
        positions << QString::number(args.at(1).toInt());
    EXPECT_EQ(positions.join(' ').toStdString(), "0 1 2");
    EXPECT_EQ(browserMessages().back(), "MediaplayerExited() ");
    EXPECT_EQ(browserMessages().at(browserMessages().size() - 2), "NowplayingState(int) 00000008") << "the list ended";
}

} // namespace
