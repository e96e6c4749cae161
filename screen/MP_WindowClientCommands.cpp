// The commands of the player screen that act on the player itself: leaving
// it (Back, with a question while a download runs), the setup screen,
// deleting or removing the playing file, zoom, slide show, hiding the player
// or a download.

#include "screen/MP_WindowClient.h"

#include <QFileInfo>

#include "lists/MP_ListInterface.h"
#include "platform/MP_CommonPlayer.h"
#include "platform/MP_Utility.h"
#include "platform/QCopChannel.h"
#include "platform/STUFF_Global.h"
#include "platform/TextResources.h"
#include "platform/TraceLog.h"
#include "platform/VmDialogs.h"
#include "platform/VmSoftKey.h"
#include "screen/MP_SetupLibrary.h"

MP_DEFINE_TRACE(WindowCommandTrace, "MP_WindowClient")

namespace {

const char* const kDownloadManagerChannel = "/VEMO/AM/DOWNLOADMANAGER";
const char* const kUserCancelMessage = "MPUserCancelDL()";
const char* const kShowUIMessage = "ShowUI";

const int kQuestionDialog = 1;
const int kInformationDialog = 2;
const int kYes = 1;
const int kLeftKey = 0;
// A content type beyond sound and video that the engine may report; its
// setup is the video one.
const int kStillContent = 3;

bool askYesNo(const char* titleId, const char* title, const char* textId, const char* text)
{
    VmMessageDlg question(kQuestionDialog, MP_tr(titleId, title), MP_tr(textId, text));
    return question.exec() != 0;
}

} // namespace

bool MP_WindowClient::isPlayingPause()
{
    MP_PlayerControl* control = getCommonPlayer()->getPlayerControl();
    if (!control)
        return false;
    const int state = control->getState();
    return state >= MP_STATE_PLAYING && state <= MP_STATE_4;
}

bool MP_WindowClient::willHide()
{
    return getCommonPlayer()->getContentType() == MP_CONTENT_SOUND && isPlayingPause();
}

bool MP_WindowClient::confirmQuit()
{
    if (!m_downloading)
        return true;
    const QString name = STUFF_Global::getDisplayPathName(MP_Utility::removePDSuffix(getCurrentFile()));
    VmMessageDlg question(
        kQuestionDialog, MP_tr("TXT_RID_HEADER_CANCEL_DOWNLOAD", "Cancel Download"),
        MP_tr("FMT_RID_INSTRUCTIONALTXT_YOU_ARE_CURRENTLY_DOWNLOADING_COLON_1_CHOOSING_YES_WILL_CANCEL_THIS_DOWNLOAD_"
              "DO_YOU_WANT_TO_CONTINUE",
              "You are currently downloading: %1.  Choosing Yes will cancel this download. "
              "Do you want to continue?")
            .arg(name));
    // Only an explicit Yes cancels: any other answer keeps the download.
    if (question.exec() != kYes)
        return false;
    cancelDownload();
    return true;
}

void MP_WindowClient::cancelDownload()
{
    // m_downloading stays as it is: the engine's next reports end it.
    if (getCommonPlayer()->getMediumType() == MP_MEDIUM_PROGRESSIVE_DOWNLOAD)
        QCopChannel::send(kDownloadManagerChannel, kUserCancelMessage);
    else
        closeDlmSession();
}

void MP_WindowClient::onBackClicked()
{
    WindowCommandTrace(3, "MP_WindowClient::onBackClicked\n");
    if (!confirmQuit())
        return;
    if (m_isBackHide && willHide())
        emit hidePlayer();
    else
        emit quitApp();
}

void MP_WindowClient::onMenuSetup()
{
    const int contentType = getCommonPlayer()->getContentType();
    WindowCommandTrace(3, "MP_WindowClient::onMenuSetup, contentType=%d\n", contentType);
    // Content of no known type has no setup screen: the library is not even
    // opened, since it would only be closed again without a call.
    if (contentType == MP_CONTENT_SOUND)
        MP_SetupLibrary::showSetupUI(MP_SetupLibrary::kAudio, m_isBackHide);
    else if (contentType == MP_CONTENT_VIDEO || contentType == kStillContent)
        MP_SetupLibrary::showSetupUI(MP_SetupLibrary::kVideo, m_isBackHide);
}

void MP_WindowClient::onMenuDelete()
{
    confirmAndRemove(Removal::Delete);
}

void MP_WindowClient::onMenuRemove()
{
    confirmAndRemove(Removal::Remove);
}

void MP_WindowClient::confirmAndRemove(Removal removal)
{
    const bool deletes = removal == Removal::Delete;
    // Decided again now, not only when the menu was built: the list or its
    // item may have changed under an open menu.
    if (!isRemovalOffered(removal)) {
        WindowCommandTrace(3, "MP_WindowClient::confirmAndRemove, not offered for what plays now\n");
        return;
    }
    const ChosenItem chosen = currentItem();
    const bool yes = deletes ? askYesNo("TXT_RID_HEADER_DELETE", "Delete", "TXT_RID_INSTRUCTIONALTXT_DELETE_THIS_FILE",
                                        "Are you sure you want to delete this file?")
                             : askYesNo("TXT_RID_HEADER_REMOVE", "Remove", "TXT_RID_INSTRUCTIONALTXT_REMOVE_THIS_FILE",
                                        "Are you sure you want to remove this file?");
    if (!yes)
        return;
    const QString title = deletes ? MP_tr("TXT_RID_HEADER_DELETE", "Delete") : MP_tr("TXT_RID_HEADER_REMOVE", "Remove");
    // The question is modal, but the engine plays on under it: the song it
    // was asked about may have ended, or another list may play, by the time
    // of the answer. The answer was about the chosen item, so it is never
    // applied to whatever plays now; nor is the chosen item taken out behind
    // the user's back while the screen shows another. Nothing is changed and
    // a notice says why; choosing the command again acts on what plays.
    if (!isStillCurrent(chosen) || !isRemovalOffered(removal)) {
        WindowCommandTrace(3, "MP_WindowClient::confirmAndRemove, playback moved on, nothing changed\n");
        showNotice(title, MP_tr("TXT_RID_INSTRUCTIONALTXT_FILE_NO_LONGER_PLAYING",
                                "The file you chose is no longer playing. Nothing was changed."));
        return;
    }
    // The list refuses to delete a file that is no longer the one it listed
    // (another file renamed over it); the file is then still there.
    if (!removeCurrent() && deletes && QFileInfo::exists(chosen.path)) {
        showNotice(title, MP_tr("TXT_RID_INSTRUCTIONALTXT_FILE_NOT_DELETED",
                                "The file was not deleted: it was changed or replaced since it was listed, "
                                "or it cannot be deleted."));
    }
}

MP_WindowClient::ChosenItem MP_WindowClient::currentItem()
{
    ChosenItem item;
    item.list = getCommonPlayer()->getCurrentList();
    if (item.list) {
        item.index = item.list->getCurrentIndex();
        item.path = item.list->getCurrent();
    }
    return item;
}

bool MP_WindowClient::isStillCurrent(const ChosenItem& chosen)
{
    // The path as well as the list and the index: a list deleted meanwhile
    // may have left its address to a new one.
    const ChosenItem now = currentItem();
    return chosen.list && now.list == chosen.list && now.index == chosen.index && now.path == chosen.path;
}

bool MP_WindowClient::removeCurrent()
{
    MP_ListInterface* list = getCommonPlayer()->getCurrentList();
    if (!list)
        return false;
    // A database list answers false and reports the change itself later.
    if (!list->removeItem(list->getCurrentIndex())) {
        WindowCommandTrace(3, "MP_WindowClient::removeCurrent, the list removes later or refused\n");
        return false;
    }
    if (list->count() == 0)
        emit quitApp();
    else
        emit signalCurrentChanged();
    return true;
}

void MP_WindowClient::showNotice(const QString& title, const QString& text)
{
    VmMessageDlg notice(kInformationDialog, title, text);
    notice.exec();
}

void MP_WindowClient::onNormalSize()
{
    getCommonPlayer()->setNormalSize(true);
}

void MP_WindowClient::onOriginalSize()
{
    getCommonPlayer()->setNormalSize(false);
}

void MP_WindowClient::onMenuSlideshow()
{
    if (m_softKey)
        m_softKey->slotBtnReleased(kLeftKey);
    getCommonPlayer()->autoPlay(true);
}

void MP_WindowClient::onMenuHide()
{
    emit hidePlayer();
}

void MP_WindowClient::onMenuHidePD()
{
    QCopChannel::send(kDownloadManagerChannel, kShowUIMessage);
    if (getCommonPlayer()->getMediumType() == MP_MEDIUM_TRANSFER_SESSION) {
        // The transfer goes on in the download manager; only the player goes.
        if (MP_PlayerControl* control = getCommonPlayer()->getPlayerControl())
            control->stop();
        emit closePlayer();
    } else {
        emit quitApp();
    }
}

void MP_WindowClient::onFTSignalCancelFromDLM()
{
    WindowCommandTrace(3, "MP_WindowClient::onFTSignalCancelFromDLM\n");
    emit quitApp();
}

void MP_WindowClient::onMenuUseBluetooth()
{
    // The dynamic item is connected to its own action.
}

void MP_WindowClient::onMenuUseHandset()
{
    // The dynamic item is connected to its own action.
}
