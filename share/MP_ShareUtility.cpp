#include "share/MP_ShareUtility.h"

#include <dlfcn.h>

#include <memory>

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include "lists/MP_AufContext.h"
#include "platform/ADDRBK_UI.h"
#include "platform/AM_Action.h"
#include "platform/EMAIL_SendMail.h"
#include "platform/MYSTUFF_DETAIL_WidgetUI.h"
#include "platform/MYSTUFF_FS_Opr.h"
#include "platform/Metadata.h"
#include "platform/SETUP_THEME.h"
#include "platform/SHARE_Tool.h"
#include "platform/STUFF_Global.h"
#include "platform/TextResources.h"
#include "platform/TraceLog.h"
#include "platform/VmDialogs.h"
#include "platform/WA_UTIL_VBookmark.h"
#include "share/MP_AddressBook.h"

MP_DEFINE_TRACE(ShareTrace, "MP_ShareUtility")

namespace {

const QString kErrorIcon = QStringLiteral("error_pop.gif");

const int kNoticeInfo = 0;
const int kNoticeError = 1;
const int kMessageInformation = 2;
const int kMeterMaximum = 50;
const int kMeterBarSkin = 49;
const int kMeterFrameSkin = 47;
const int kDetailFlags = 2;
// What the address book is given: the file as a contact's ringtone, with its
// default options.
const int kContactRingtone = 1;

QString fileName(const QString& path)
{
    // A path without "/" is its own name (section() gives the whole string).
    return path.section(QLatin1Char('/'), -1);
}

void showCannotOpen()
{
    VmMessageDlg dialog(MP_tr("TXT_RID_HEADER_CANNOT_OPEN", "Cannot Open"),
                        MP_tr("TXT_RID_INSTRUCTIONALTXT_BECAUSE_THE_FILE_DOESNT_EXIST", "Because the file does not exist."),
                        kMessageInformation, 0, nullptr, nullptr, /*modal*/ true);
    dialog.setTitleIcon(kErrorIcon);
    dialog.exec();
}

void sendMessageRequest(const QString& path, bool isBlog)
{
    AM_ActionData request;
    request.setAction(QStringLiteral("SendMMSSMS"));
    request.setValue(QStringLiteral("Files"), path);
    request.setValue(QStringLiteral("AutoDelete"), QStringLiteral("no"));
    request.setValue(QStringLiteral("TextFileAsAttachment"), QStringLiteral("yes"));
    request.setValue(QStringLiteral("IsBlog"), isBlog ? QStringLiteral("yes") : QStringLiteral("no"));
    request.invoke(false);
}

} // namespace

bool MP_ShareUtility::checkFile(const QString& path)
{
    if (QFile::exists(path))
        return true;
    VmNoticeDlg notice(kNoticeError, QString(),
                       MP_tr("TXT_RID_INSTRUCTIONALTXT_BECAUSE_THE_FILE_DOESNT_EXIST", "Because the file does not exist."));
    notice.exec();
    return false;
}

void MP_ShareUtility::sendToMessage(const QString& path)
{
    if (checkFile(path))
        sendMessageRequest(path, /*isBlog*/ false);
}

void MP_ShareUtility::sendToBlog(const QString& path)
{
    if (checkFile(path))
        sendMessageRequest(path, /*isBlog*/ true);
}

void MP_ShareUtility::sendToEmail(const QString& path)
{
    if (!checkFile(path))
        return;
    EMAIL_SendMail_File_S file;
    file.path = path;
    file.name = fileName(path);
    file.flag = false;
    EMAIL_SendMail::sendMail(QValueList<EMAIL_SendMail_File_S>{file});
}

void MP_ShareUtility::sendToBluetooth(const QString& path)
{
    if (!checkFile(path))
        return;
    SHARE_Tool::SHARE_OBJECT object;
    object.info.name = fileName(path);
    object.info.description = QString();
    object.path = path;
    object.flag = false;
    SHARE_Tool::shareByBt(QValueList<SHARE_Tool::SHARE_OBJECT>{object});
}

void MP_ShareUtility::sendToRemovableMedia(const QString& path)
{
    if (!checkFile(path))
        return;
    const QString destination = STUFF_Global::getDefaultMMCSDPartition();
    int count = 1;
    QStringList failed;

    VmMeterModule meter(kMeterMaximum, -1, nullptr, nullptr, 0, kMeterBarSkin, kMeterFrameSkin);
    auto notice = std::make_unique<VmNoticeDelay>(QString(), &meter, nullptr, QString(), 1);
    notice->setInstructionText(MP_tr("FMT_RID_INSTRUCTIONALTXT_SENDING_COLON_1", "Sending: %1")
                                   .arg(STUFF_Global::instance()->getShortName(path)));
    notice->show();
    // The copy blocks the event loop: let the notice be painted first.
    QApplication::processEvents();

    const int result = MYSTUFF_FS_Opr::getPasteResult(destination, QFileInfo(path), notice.get(), &count, failed,
                                                      MYSTUFF_FS_Opr::kCopy, nullptr, nullptr);
    if (result == 0)
        meter.setValue(kMeterMaximum);
    notice.reset();
    if (result != 0) {
        // The file service has told the user already.
        ShareTrace(3, "MP_ShareUtility::sendToRemovableMedia, copy failed: %d\n", result);
        return;
    }
    // The two texts are joined with nothing between: the translations carry
    // their own spacing.
    const QString text = MP_tr("TXT_RID_INSTRUCTIONALTXT_YOU_HAVE_SUCCESSFULLY_SENT_COLON", "You have successfully sent:")
                         + MP_tr("FMT_RID_STANDARD_1_FILES", "%1 files").arg(QString::number(1));
    VmNoticeDlg(kNoticeInfo, QString(), text).exec();
}

void MP_ShareUtility::applyToRingtone(const QString& path)
{
    if (!path.isEmpty())
        SETUP_THEME::applyRingTone(path);
}

void MP_ShareUtility::applyToWallpaper(const QString& path)
{
    if (!path.isEmpty())
        SETUP_THEME::applyElement(THEME_ELEMENT_WALLPAPER, path, ELEMENT_TYPE_FILE);
}

bool MP_ShareUtility::applyToNewContact(const QString& path)
{
    const MP_AddressBook book;
    ADDRBK_UI* ui = book.ui();
    return ui && ui->addToNewContact(kContactRingtone, path, 0, 0, QString()) != 0;
}

bool MP_ShareUtility::applyToExistingContact(const QString& path)
{
    const MP_AddressBook book;
    ADDRBK_UI* ui = book.ui();
    return ui && ui->addToExistingContact(kContactRingtone, path, 0, 0) != 0;
}

bool MP_ShareUtility::applyToPlaylist(const QString& path)
{
    // UTF-8, as the database takes every path: a Latin-1 copy of a name
    // outside Latin-1 ("?" in place of each other letter) is never found,
    // while the menu, which asks with UTF-8, offered the command.
    if (isMediaFile(path.toUtf8().constData()) == 0)
        return false;
    dlerror();
    void* symbol = dlsym(RTLD_DEFAULT, "metadataApplyTo");
    if (const char* error = dlerror()) {
        ShareTrace(3, "MP_ShareUtility::applyToPlaylist, %s\n", error);
        return false;
    }
    if (!symbol)
        return false;
    const auto applyTo = reinterpret_cast<MetadataApplyToFunction>(symbol);
    return applyTo(path.toUtf8().constData()) != 0;
}

void MP_ShareUtility::showProperty(const QString& path, MediaMetaInfo* info)
{
    if (!QFile::exists(path)) {
        showCannotOpen();
        return;
    }
    if (info)
        MYSTUFF_DETAIL_WidgetUI(path, *info, nullptr, nullptr, kDetailFlags).exec();
    else
        MYSTUFF_DETAIL_WidgetUI(path, nullptr, nullptr, kDetailFlags).exec();
}

void MP_ShareUtility::editBookmark(const QString& path)
{
    if (QFileInfo::exists(path))
        WA_UTIL_VBookmark::editBookmark(path);
    else
        showCannotOpen();
}

void MP_ShareUtility::saveBookmark(const QString& path, QString& result)
{
    WA_UTIL_VBookmark::addBookmark(QString(), path, result);
}

bool MP_ShareUtility::setBuyMoreFlag(const QString& path)
{
    return metadataSetBuyFlagByUri(MP_AufContext::getHandler(), path.toUtf8().constData(), 1, 0) == 0;
}
