// The player screen's commands end to end: what the options menu and the
// Back key do to files, play lists and the download manager.

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "tests/scenarios/ScenarioRun.h"
#include "tests/support/Journal.h"
#include "tests/support/ProjectProgram.h"

namespace {

// "title answer" of every dialog shown.
QStringList dialogAnswers(const ScenarioRun& scenario)
{
    QStringList answers;
    for (const QString& dialog : Journal::dialogs(scenario.journal()))
        answers << dialog.section('|', 0, 0) + ' ' + dialog.section('|', -1);
    return answers;
}

/** Copies one album of the sample library into @p folder (so the library stays
 *  whole) and, with @p scenario, scans the copy into that run's database. */
bool copyPaperBoats(const QTemporaryDir& folder, const ScenarioRun* scenario)
{
    const QDir album(ScenarioRun::sampleLibrary() + "/Music/Aurora Lane/Paper Boats");
    for (const QString& name : album.entryList(QDir::Files)) {
        if (!QFile::copy(album.filePath(name), folder.filePath(name)))
            return false;
    }
    if (!scenario)
        return true;
    QProcess scan;
    return ProjectProgram::start(scan, "mp-scan", {"--data-dir", scenario->dataDir() + "/data", folder.path()})
           && scan.waitForFinished(60000) && scan.exitCode() == 0;
}

const QStringList kPaperBoats{"--action", "PlayMusicListInMediaplayer", "isAllArtist=1", "isAllAlbum=0",
                              "Album=Paper Boats", "isAllGenre=1", "isAllComposer=1", "StorageLocation=2"};

TEST(CommandsScenarioTest, DeletingThePlayingSong_DeletesItsFileAndPlaysTheNext)
{
    ScenarioRun scenario;
    QTemporaryDir folder;
    ASSERT_TRUE(copyPaperBoats(folder, &scenario));
    ASSERT_EQ(scenario.run(ScenarioRun::script("commands_delete_playing.mps"), kPaperBoats), 0)
        << qPrintable(scenario.errorOutput());
    EXPECT_EQ(dialogAnswers(scenario), QStringList{"Delete 1"});
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList({"02 Rain on Glass.wav", "03 Lanterns.wav"}));
    EXPECT_EQ(scenario.argsOf("file", "deleted"), QList<QJsonArray>{QJsonArray{folder.filePath("01 Paper Boats.wav")}});
    EXPECT_EQ(scenario.calls().count("engine:notifyCurrentChanged"), 1);
    EXPECT_EQ(scenario.titlesPlayed().mid(0, 2), (QStringList{"Paper Boats", "Rain on Glass"}));
}

TEST(CommandsScenarioTest, DeleteAnsweredAfterTheSongEnded_DeletesNeitherSong)
{
    ScenarioRun scenario;
    QTemporaryDir folder;
    ASSERT_TRUE(copyPaperBoats(folder, &scenario));
    ASSERT_EQ(scenario.run(ScenarioRun::script("commands_delete_after_song_ended.mps"), kPaperBoats), 0)
        << qPrintable(scenario.errorOutput());
    EXPECT_EQ(dialogAnswers(scenario), QStringList({"Delete 1", "Delete 1"})) << "the question, then the notice";
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files),
              QStringList({"01 Paper Boats.wav", "02 Rain on Glass.wav", "03 Lanterns.wav"}));
    EXPECT_TRUE(scenario.argsOf("file", "deleted").isEmpty());
    EXPECT_EQ(scenario.calls().count("engine:notifyCurrentChanged"), 0);
    EXPECT_EQ(scenario.titlesPlayed(), (QStringList{"Paper Boats", "Rain on Glass"})) << "and it plays on";
}

TEST(CommandsScenarioTest, DeletingFromAFolder_PlaysTheFolderOn)
{
    QTemporaryDir folder;
    ASSERT_TRUE(copyPaperBoats(folder, nullptr));
    ScenarioRun scenario;
    ASSERT_EQ(scenario.run(ScenarioRun::script("commands_delete_in_folder.mps"), {"--folder", folder.path()}), 0)
        << qPrintable(scenario.errorOutput());
    EXPECT_EQ(dialogAnswers(scenario), QStringList{"Delete 1"});
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList({"02 Rain on Glass.wav", "03 Lanterns.wav"}));
    EXPECT_EQ(scenario.calls().count("engine:notifyCurrentChanged"), 1);
    // The first song twice: as the window's file, then as the folder list's first entry.
    EXPECT_EQ(scenario.titlesPlayed(), (QStringList{"Paper Boats", "Paper Boats", "Rain on Glass"}));
}

TEST(CommandsScenarioTest, BackWhileDownloading_NoKeepsThePlayerYesCancelsAndQuits)
{
    ScenarioRun scenario;
    ASSERT_EQ(scenario.run(ScenarioRun::script("commands_back_while_downloading.mps"),
                           {"Music/Aurora Lane/Northern Lights/01 First Light.wav"}),
              0)
        << qPrintable(scenario.errorOutput());
    const QList<QJsonObject> journal = scenario.journal();
    const QStringList dialogs = Journal::dialogs(journal);
    ASSERT_EQ(dialogs.size(), 2);
    EXPECT_EQ(dialogs.first().toStdString(),
              "Cancel Download|You are currently downloading: 01 First Light.wav.  Choosing Yes will cancel this "
              "download. Do you want to continue?|0");
    // In order: No keeps everything; Yes tells the download manager, then the player closes.
    QStringList events;
    for (const QJsonObject& line : journal) {
        const QString kind = line.value("kind").toString();
        if (kind == QLatin1String("dialog"))
            events << "dialog " + QString::number(line.value("answer").toInt());
        else if (kind == QLatin1String("qcop") && line.value("channel").toString() == "/VEMO/AM/DOWNLOADMANAGER")
            events << line.value("message").toString();
        else if (kind == QLatin1String("engine") && line.value("call").toString() == "closePlayerWindow")
            events << "closePlayerWindow";
    }
    EXPECT_EQ(events, QStringList({"dialog 0", "dialog 1", "MPUserCancelDL()", "closePlayerWindow"}));
    EXPECT_EQ(Journal::messages(journal, "/VEMO/AM/DOWNLOADMANAGER"), MessageLines{"MPUserCancelDL() "})
        << "sent without data";
}

} // namespace
