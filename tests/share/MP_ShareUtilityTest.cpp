// What leaves the library when the player shares or applies the file it
// shows: the journaled service calls, action records and dialogs, and the
// files and database rows the host services leave behind. The buy-more mark
// and saving a bookmark are tested through the window client's commands.

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLineEdit>
#include <QTimer>

#include "host/platform/HostJournal.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/services/HostBookmarkEditor.h"
#include "host/platform/toolkit/HostDialogs.h"
#include "host/platform/toolkit/HostTranslations.h"
#include "platform/MYSTUFF_DETAIL_WidgetUI.h"
#include "platform/STUFF_Global.h"
#include "share/MP_AddressBook.h"
#include "share/MP_ShareUtility.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

namespace {

const QString kMissingNotice = QStringLiteral(
    R"({"answer":1,"class":"VmNoticeDlg","kind":"dialog","text":"Because the file does not exist.","title":"","type":1})");
const QString kCannotOpen = QStringLiteral(
    R"({"answer":1,"class":"VmMessageDlg","icon":"error_pop.gif","kind":"dialog",)"
    R"("text":"Because the file does not exist.","title":"Cannot Open","type":2})");

class MP_ShareUtilityTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(database);
        media = writeDataFile(QStringLiteral("a.mp3"), "ID3 media bytes");
    }

    /** Every captured line as compact JSON (keys sorted), the file's path written "SONG". */
    QStringList lines() const
    {
        QStringList result;
        for (const QJsonObject& line : journal())
            result << QString::fromUtf8(QJsonDocument(line).toJson(QJsonDocument::Compact))
                          .replace(media, QStringLiteral("SONG"));
        return result;
    }

    static QByteArray readFile(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
    }

    std::unique_ptr<MediaDatabase> database;
    QString media;   ///< a file on the phone, not yet in the media database
};

TEST_F(MP_ShareUtilityTest, EverySend_OfAMissingFile_ShowsTheNoticeAndSendsNothing)
{
    const QString missing = dataPath(QStringLiteral("gone.mp3"));
    for (auto send : {&MP_ShareUtility::sendToMessage, &MP_ShareUtility::sendToBlog, &MP_ShareUtility::sendToEmail,
                      &MP_ShareUtility::sendToBluetooth, &MP_ShareUtility::sendToRemovableMedia}) {
        HostJournal::startCapture();
        send(missing);
        EXPECT_EQ(lines(), QStringList{kMissingNotice});
    }
}

// Message and blog send the same record but for IsBlog; mail and Bluetooth name the
// file by what follows its last slash, and a relative path without one is its own name.
TEST_F(MP_ShareUtilityTest, Sends_MessageAndBlogDifferInIsBlog_MailAndBluetoothNameTheFile)
{
    MP_ShareUtility::sendToMessage(media);
    MP_ShareUtility::sendToBlog(media);
    MP_ShareUtility::sendToEmail(media);
    MP_ShareUtility::sendToBluetooth(media);
    const QString previous = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(dataPath(QString())));
    MP_ShareUtility::sendToEmail(QStringLiteral("a.mp3"));
    MP_ShareUtility::sendToBluetooth(QStringLiteral("a.mp3"));
    QDir::setCurrent(previous);

    const QString request = QStringLiteral(
        R"({"args":[{"action":"SendMMSSMS","values":{"AutoDelete":"no","Files":"SONG","IsBlog":"%1",)"
        R"("TextFileAsAttachment":"yes"}},false],"call":"invoke","kind":"action"})");
    const QString mail = QStringLiteral(R"({"args":[[{"flag":false,"name":"a.mp3","path":"%1"}]],"call":"sendMail","kind":"service"})");
    const QString push = QStringLiteral(R"({"args":[[{"flag":false,"info":{"description":"","name":"a.mp3"},"path":"%1"}]],)"
                                        R"("call":"shareByBt","kind":"service"})");
    EXPECT_EQ(lines(), QStringList({request.arg("no"), request.arg("yes"), mail.arg("SONG"), push.arg("SONG"),
                                    mail.arg("a.mp3"), push.arg("a.mp3")}));
}

TEST_F(MP_ShareUtilityTest, RemovableMedia_CopiesTheBytesOnce_NeverOverWhatHoldsTheName)
{
    // No card folder: nothing to copy into.
    MP_ShareUtility::sendToRemovableMedia(media);
    EXPECT_EQ(HostJournal::captured().last().value("call").toString(), QStringLiteral("getPasteResult"))
        << "no copy, and after it no notice";

    const QString card = STUFF_Global::getDefaultMMCSDPartition();
    const QString copy = card + QStringLiteral("/a.mp3");
    ASSERT_TRUE(QDir().mkpath(card));
    HostJournal::startCapture();
    MP_ShareUtility::sendToRemovableMedia(media);
    EXPECT_EQ(readFile(copy), QByteArray("ID3 media bytes"));
    EXPECT_EQ(lines(),
              QStringList({R"({"class":"VmNoticeDelay","kind":"dialog","text":"Sending: a.mp3","title":"","type":1})",
                           QStringLiteral(R"({"args":["%1","SONG","notice",1,[],6,null,null],"call":"getPasteResult","kind":"service"})")
                               .arg(card),
                           QStringLiteral(R"({"args":["SONG","%1"],"call":"copy","kind":"file","result":0})").arg(copy),
                           R"({"answer":1,"class":"VmNoticeDlg","kind":"dialog","text":"You have successfully sent:1 files","title":"","type":0})"}));

    // The success texts are joined as the language spaces them: in German the first one carries the space.
    QFile::remove(copy);
    ASSERT_TRUE(HostTranslations::use("de"));
    HostJournal::startCapture();
    MP_ShareUtility::sendToRemovableMedia(media);
    HostTranslations::use(QString());
    EXPECT_EQ(journal().first().value("text").toString(), "Senden: a.mp3");
    EXPECT_EQ(journal().last().value("text").toString(), "Erfolgreich gesendet: 1 Dateien");

    // A file of that name is already on the card: it is not overwritten.
    const QString taken = QStringLiteral(R"({"args":["SONG","%1"],"call":"copy","kind":"file","result":3})").arg(copy);
    QFile older(copy);
    ASSERT_TRUE(older.open(QIODevice::WriteOnly) && older.write("older") == 5);
    older.close();
    HostJournal::startCapture();
    MP_ShareUtility::sendToRemovableMedia(media);
    EXPECT_EQ(readFile(copy), QByteArray("older"));
    EXPECT_EQ(lines().last(), taken);

    // A link on the card that points nowhere, here off the card, is a taken name, not a way out.
    const QString outside = dataPath(QStringLiteral("outside.mp3"));
    ASSERT_TRUE(QFile::remove(copy));
    ASSERT_TRUE(QFile::link(outside, copy));
    HostJournal::startCapture();
    MP_ShareUtility::sendToRemovableMedia(media);
    EXPECT_FALSE(QFileInfo::exists(outside)) << "nothing is written through the link";
    EXPECT_EQ(QFileInfo(copy).symLinkTarget(), outside);
    EXPECT_EQ(QDir(card).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot),
              QStringList{"a.mp3"}) << "no copy is left beside it";
    EXPECT_EQ(lines().last(), taken);
}

TEST_F(MP_ShareUtilityTest, Contacts_GoThroughTheAddressBookLibraryAndFailQuietlyWithoutIt)
{
    EXPECT_TRUE(MP_ShareUtility::applyToNewContact(media));
    EXPECT_TRUE(MP_ShareUtility::applyToExistingContact(media));
    EXPECT_EQ(lines(), QStringList({R"({"args":[],"call":"getAddrbkUI","kind":"service"})",
                                    R"({"args":[1,"SONG",0,0,null],"call":"addToNewContact","kind":"service"})",
                                    R"({"args":[],"call":"getAddrbkUI","kind":"service"})",
                                    R"({"args":[1,"SONG",0,0],"call":"addToExistingContact","kind":"service"})"}));

    HostJournal::startCapture();
    MP_AddressBook::setLibraryName("libvemoaddrbk-not-installed.so");
    const bool applied[] = {MP_ShareUtility::applyToNewContact(media),
                            MP_ShareUtility::applyToExistingContact(media)};
    MP_AddressBook::setLibraryName(QByteArray());
    EXPECT_FALSE(applied[0] || applied[1]);
    EXPECT_TRUE(lines().isEmpty()) << "nothing shown, nothing called";
}

TEST_F(MP_ShareUtilityTest, Playlist_AddsAStoredFileOnceToTheAppliedListAndRefusesOtherFiles)
{
    EXPECT_FALSE(MP_ShareUtility::applyToPlaylist(media)) << "not in the media database";
    EXPECT_TRUE(lines().isEmpty()) << "the apply-to function is not even looked up";

    // A name outside Latin-1 is looked up as the database holds it, in UTF-8.
    media = writeDataFile(QString::fromUtf8("02 \xce\xa9\xce\xbc\xce\xad\xce\xb3\xce\xb1.wav"));
    const quint32 id = database->addMedia(::song(media).title("A"));
    EXPECT_TRUE(MP_ShareUtility::applyToPlaylist(media));
    EXPECT_TRUE(MP_ShareUtility::applyToPlaylist(media));
    const std::optional<MediaGroup> applied = database->groupByName(METADATA_GROUP_USER, "Applied");
    ASSERT_TRUE(applied);
    EXPECT_EQ(database->groupMembers(applied->id), QList<quint32>{id});
    EXPECT_EQ(lines().first(), R"({"args":["SONG"],"call":"metadataApplyTo","kind":"service","result":1})");
}

// The theme takes a file unless its path is empty; the details show a file that exists.
TEST_F(MP_ShareUtilityTest, RingtoneWallpaperAndProperties_GoToTheirServices)
{
    MP_ShareUtility::applyToRingtone(QString());
    MP_ShareUtility::applyToWallpaper(QString());
    MP_ShareUtility::applyToRingtone(media);
    MP_ShareUtility::applyToWallpaper(media);
    MediaMetaInfo info;
    info.title = "A";
    MP_ShareUtility::showProperty(media, &info);
    MP_ShareUtility::showProperty(media, nullptr);
    MP_ShareUtility::showProperty(dataPath("gone.mp3"), &info);
    EXPECT_EQ(lines(), QStringList({R"({"args":["SONG"],"call":"applyRingTone","kind":"service"})",
                                    R"({"args":[11,"SONG",0],"call":"applyElement","kind":"service"})",
                                    R"({"answer":1,"args":["SONG",{"album":"","artist":"","durationMs":0,"title":"A"},2],)"
                                    R"("class":"MYSTUFF_DETAIL_WidgetUI","kind":"dialog"})",
                                    R"({"answer":1,"args":["SONG",null,2],"class":"MYSTUFF_DETAIL_WidgetUI","kind":"dialog"})",
                                    kCannotOpen}));
}

// The display path of Edit Bookmark: the editor opens on the stored bookmark, and the
// journal's line says whether it was saved (1) or cancelled (0).
TEST_F(MP_ShareUtilityTest, Bookmarks_AtADisplayTheEditorSavesOrCancelsAndTheJournalSaysWhich)
{
    QString identity;
    MP_ShareUtility::saveBookmark("rtsp://s.example/live", identity);
    HostDialogs::setInteractive(true);
    for (const bool save : {false, true}) {
        // The person renames the bookmark in the editor that opens, then cancels or saves.
        QTimer::singleShot(0, [save] {
            QWidget* modal = QApplication::activeModalWidget();
            auto* editor = qobject_cast<HostBookmarkEditor*>(modal);
            if (!editor) {
                ADD_FAILURE() << "no editor opened";
                if (modal)
                    modal->close();  // so that the test ends rather than waits
                return;
            }
            editor->titleField().setText("Live");
            save ? editor->accept() : editor->reject();
        });
        MP_ShareUtility::editBookmark(identity);
    }
    const QString line = QStringLiteral(R"({"answer":%1,"args":["%2"],"bookmark":{"title":"rtsp://s.example/live",)"
                                        R"("url":"rtsp://s.example/live"},"call":"editBookmark","kind":"service"})");
    EXPECT_EQ(lines().mid(1), QStringList({line.arg(0).arg(identity), line.arg(1).arg(identity)}));
    EXPECT_EQ(readFile(identity), QByteArray("TITLE=Live\nURL=rtsp://s.example/live\n"));
}

} // namespace
