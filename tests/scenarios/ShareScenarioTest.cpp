// Sharing end to end: what "Send to" and the bookmark items leave in the data
// folder, and what the user is told.

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

#include "tests/scenarios/ScenarioRun.h"

namespace {

const QString kStream = QStringLiteral("http://radio.example/live.mp3");

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

QStringList dialogTexts(const ScenarioRun& scenario)
{
    QStringList texts;
    for (const QJsonObject& line : scenario.journal()) {
        if (line.value("kind").toString() == QLatin1String("dialog"))
            texts << line.value("class").toString() + ": " + line.value("text").toString();
    }
    return texts;
}

} // namespace

TEST(ShareScenarioTest, ABookmarkSavedOnAStreamIsKeptForTheNextStart)
{
    ScenarioRun scenario;
    const QString bookmarks = scenario.dataDir() + "/data/bookmarks";
    ASSERT_EQ(scenario.run(ScenarioRun::script("share_bookmark.mps"), {kStream}), 0) << qPrintable(scenario.errorOutput());
    const QList<QJsonArray> saved = scenario.argsOf("service", "addBookmark");
    ASSERT_EQ(saved.size(), 1);
    EXPECT_EQ(saved.first(), (QJsonArray{QJsonValue::Null, kStream, bookmarks + "/bookmark-1.url"}));
    const QList<QJsonArray> edited = scenario.argsOf("service", "editBookmark");
    ASSERT_EQ(edited.size(), 1) << "Edit Bookmark is offered right after the save";
    EXPECT_EQ(edited.first(), QJsonArray{bookmarks + "/bookmark-1.url"});
    EXPECT_TRUE(contents(bookmarks + "/bookmark-1.url").contains("URL=" + kStream.toUtf8()));

    // The next start reads the stored bookmark: a new one does not take its place.
    ASSERT_EQ(scenario.run(ScenarioRun::script("share_bookmark.mps"), {kStream}), 0) << qPrintable(scenario.errorOutput());
    ASSERT_EQ(scenario.argsOf("service", "addBookmark").size(), 1);
    EXPECT_EQ(scenario.argsOf("service", "addBookmark").first().at(2).toString(), bookmarks + "/bookmark-2.url");
    EXPECT_EQ(QDir(bookmarks).entryList(QDir::Files), QStringList({"bookmark-1.url", "bookmark-2.url"}));
}

TEST(ShareScenarioTest, SendingThePlayingSongToTheCardCopiesItAndSaysSo)
{
    ScenarioRun scenario;
    const QString song = ScenarioRun::sampleLibrary() + "/Music/Aurora Lane/Northern Lights/01 First Light.wav";
    ASSERT_EQ(scenario.run(ScenarioRun::script("share_send_to_card.mps"), {song}), 0) << qPrintable(scenario.errorOutput());

    const QString copy = scenario.dataDir() + "/data/mmca1/01 First Light.wav";
    EXPECT_EQ(contents(copy), contents(song));
    EXPECT_EQ(dialogTexts(scenario), (QStringList{"VmNoticeDelay: Sending: 01 First Light.wav",
                                                  "VmNoticeDlg: You have successfully sent:1 files"}));
    ASSERT_EQ(scenario.argsOf("file", "copy").size(), 1);
    EXPECT_EQ(scenario.argsOf("file", "copy").first(), (QJsonArray{song, copy}));
}
