// The commands of the player screen that hand the playing file to the share
// utility: properties, send to, apply to, bookmarks and the buy-more mark.
// Each takes the path of the item being played at the moment it runs; the
// share utility reports its own failures.

#include "screen/MP_WindowClient.h"
#include "screen/MP_MenuProperties.h"

#include "platform/MP_CommonPlayer.h"
#include "platform/TextResources.h"
#include "platform/TraceLog.h"
#include "platform/VmDialogs.h"
#include "platform/VmOptionsMenu.h"
#include "share/MP_ShareUtility.h"

MP_DEFINE_TRACE(WindowShareTrace, "MP_WindowClient")

namespace {

const int kInformationDialog = 2;

} // namespace

void MP_WindowClient::onMenuProperties()
{
    MP_ShareUtility::showProperty(getCurrentFile(), nullptr);
}

void MP_WindowClient::onMenuSlotSendToMessage()
{
    MP_ShareUtility::sendToMessage(getCurrentFile());
}

void MP_WindowClient::onMenuSlotSendToEmail()
{
    MP_ShareUtility::sendToEmail(getCurrentFile());
}

void MP_WindowClient::onMenuSlotSendToBlog()
{
    MP_ShareUtility::sendToBlog(getCurrentFile());
}

void MP_WindowClient::onMenuSlotSendToRemovableMedia()
{
    MP_ShareUtility::sendToRemovableMedia(getCurrentFile());
}

void MP_WindowClient::onMenuSlotSendToBluetooth()
{
    MP_ShareUtility::sendToBluetooth(getCurrentFile());
}

void MP_WindowClient::onMenuSlotApplyToRingtone()
{
    MP_ShareUtility::applyToRingtone(getCurrentFile());
}

void MP_WindowClient::onMenuPlaylist()
{
    MP_ShareUtility::applyToPlaylist(getCurrentFile());
}

void MP_WindowClient::onMenuEditBookmark()
{
    // Only the bookmark saved on the stream that plays: one saved on another
    // stream is forgotten, never edited in its place.
    forgetBookmarkOfOtherItem();
    if (m_bookmarkSaved)
        MP_ShareUtility::editBookmark(m_bookmark);
}

void MP_WindowClient::onMenuSaveBookmark()
{
    const QString path = getCurrentFile();
    if (path.isEmpty())
        return;
    // A save that the store could not keep still counts as the stream's
    // save, with no bookmark: "Edit Bookmark" stays hidden from the next
    // menu on, and editing says that there is nothing to open.
    m_bookmarkSaved = true;
    m_bookmark = QString();
    m_bookmarkPath = path;
    MP_ShareUtility::saveBookmark(path, m_bookmark);
    if (m_bookmark.isEmpty()) {
        WindowShareTrace(3, "MP_WindowClient::onMenuSaveBookmark, nothing stored\n");
        return;
    }
    if (!m_optionsMenu || m_screenIndex < 0 || m_screenIndex >= SCREEN_COUNT)
        return;
    const int editIndex = screenTable[m_screenIndex].checkedItems.editBookmarkIndex;
    if (editIndex != -1)
        m_optionsMenu->setItemVisible(editIndex, true);
}

void MP_WindowClient::onMenuBuyMore()
{
    if (!MP_ShareUtility::setBuyMoreFlag(getCurrentFile())) {
        WindowShareTrace(3, "MP_WindowClient::onMenuBuyMore, set Flag failed.\n");
        return;
    }
    VmMessageDlg notice(kInformationDialog, MP_tr("TXT_RID_HEADER_BUY_MORE", "Buy More"),
                        MP_tr("TXT_RID_INSTRUCTIONALTXT_THIS_SONG_HAS_BEEN_MARKED_DURING_SYNCHRONIZATION_WITH_A_PC_"
                              "YOU_WILL_BE_PROMPTED_TO_BUY_MORE",
                              "This song has been marked. During synchronization with a PC you will be prompted "
                              "to buy more related content."));
    notice.exec();
}
