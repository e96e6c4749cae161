#include "screen/MP_WindowClient.h"

#include <QFileInfo>

#include <cstring>

#include "lists/MP_ListInterface.h"
#include "platform/MP_CommonPlayer.h"
#include "platform/Metadata.h"
#include "platform/QCopChannel.h"
#include "platform/SETUP_SET_Manager.h"
#include "platform/STUFF_Global.h"
#include "platform/TextResources.h"
#include "platform/TraceLog.h"
#include "platform/VmGlobal.h"
#include "platform/VmKbMainWidget.h"
#include "platform/VmOptionsMenu.h"
#include "platform/VmSoftKey.h"
#include "screen/MP_MenuProperties.h"
#include "screen/MP_SlotAction.h"
#include "screen/menu.h"
#include "share/MP_DLMSession.h"

MP_DEFINE_TRACE(WindowClientTrace, "MP_WindowClient")

namespace {

const char* const kFileManagerChannel = "FILEMANAGER_MSG_CHANNEL";
const int kLeftKey = 0;
const int kRightKey = 1;
const int kMenuSkinClass = 54;

const unsigned short kBlogBit = 149;
const unsigned short kBookmarkBit = 492;
const unsigned short kRingtoneCheckBit = 512;

bool readFlexBit(unsigned short bit)
{
    // A failing read leaves the value as set here: a bit that is not set.
    bool value = false;
    SETUP_Utility::getFlexBit(bit, value);
    return value;
}

bool isValidScreen(int index)
{
    return index >= 0 && index < SCREEN_COUNT;
}

} // namespace

MP_WindowClient::MP_WindowClient(MP_CommonPlayer* player)
    : MP_AbstractClient(player),
      m_softKey(nullptr),
      m_downloading(false),
      m_blogEnabled(false),
      m_ringtoneCheck(false),
      m_isUserList(false),
      m_isBackHide(false),
      m_screenIndex(-1),
      m_menuInitialized(false),
      m_sessionStarted(false),
      m_bookmarkSaved(false)
{
    m_fileManagerChannel = std::make_unique<QCopChannel>(kFileManagerChannel);
    connect(m_fileManagerChannel.get(), SIGNAL(received(const QCString&, const QByteArray&)), this,
            SLOT(onMessageChannel(const QCString&, const QByteArray&)));

    m_menuParser = std::make_unique<menu>();

    VmKbMainWidget* mainWidget = player->getMainWidget();
    m_softKey = mainWidget ? mainWidget->getSoftKey(true) : nullptr;
    if (m_softKey) {
        m_softKey->setText(kLeftKey, QString(), 0);
        connect(m_softKey, SIGNAL(rightClicked()), this, SLOT(onBackClicked()));
    } else {
        WindowClientTrace(3, "MP_WindowClient: the engine has no main widget, no soft keys\n");
    }
    updateRightKey();

    connect(player, SIGNAL(clearKeyClicked()), this, SLOT(onBackClicked()));
    connect(player, SIGNAL(SetupKeyEvent(int, bool)), this, SIGNAL(signalSetupKeyClicked(int, bool)));

    if (player->getMediumType() == MP_MEDIUM_TRANSFER_SESSION)
        initDlmSession();

    m_blogEnabled = readFlexBit(kBlogBit);
    m_ringtoneCheck = readFlexBit(kRingtoneCheckBit);
    m_screenIndex = -1;
}

MP_WindowClient::~MP_WindowClient()
{
    closeDlmSession();
    m_fileManagerChannel.reset();
    m_menuParser.reset();
}

void MP_WindowClient::setUserList(bool userList)
{
    m_isUserList = userList;
    // An open menu must not go on offering Remove for a list that now
    // deletes files, or Delete for one that does not.
    refreshItemRules();
}

void MP_WindowClient::setBackHide(bool backHide)
{
    m_isBackHide = backHide;
}

void MP_WindowClient::addDynamicMenuItem(MP_SlotAction* action)
{
    if (action)
        m_actionList.addAction(action);
}

void MP_WindowClient::removeDynamicMenuItem(MP_SlotAction* action)
{
    if (action)
        m_actionList.removeAction(action);
}

VmOptionsMenu* MP_WindowClient::getMenu() const
{
    return m_optionsMenu.data();
}

int MP_WindowClient::getCurrentScreenIndex()
{
    const int contentType = getCommonPlayer()->getContentType();
    const int mediumType = getCommonPlayer()->getMediumType();
    WindowClientTrace(3, "contentType=%d, mediumType=%d\n", contentType, mediumType);
    int screenIndex = -1;
    for (int i = 0; i < SCREEN_COUNT && screenIndex < 0; ++i) {
        if (screenTable[i].contentType == contentType && screenTable[i].mediumType == mediumType)
            screenIndex = i;
    }
    WindowClientTrace(3, "exit, screenIndex=%d\n", screenIndex);
    return screenIndex;
}

QString MP_WindowClient::getScreenName(int index) const
{
    if (!isValidScreen(index)) {
        WindowClientTrace(3, "MP_WindowClient::getScreenName, error while get screen!!!\n");
        return QString();
    }
    return QString::fromLatin1(screenTable[index].screenName);
}

QString MP_WindowClient::getCurrentFile()
{
    MP_ListInterface* list = getCommonPlayer()->getCurrentList();
    // A single file plays without a list; the commands still need its path.
    return list ? list->getCurrent() : getCommonPlayer()->getCurrentPath();
}

void MP_WindowClient::initializeMenu()
{
    if (m_menuInitialized)
        return;
    m_menuInitialized = true;
    VmKbMainWidget* mainWidget = getCommonPlayer()->getMainWidget();
    if (!mainWidget || !m_softKey) {
        WindowClientTrace(3, "initializeMenu: no main widget, no menu\n");
        return;
    }
    m_optionsMenu = new VmOptionsMenu(VmGlobal::getContentR(false), mainWidget, nullptr, 0, kMenuSkinClass);
    m_softKey->setText(kLeftKey, MP_tr("TXT_RID_SOFTKEY_OPTIONS", "Options"), 0);
    m_softKey->setOptMenu(kLeftKey, m_optionsMenu);
    connect(m_optionsMenu, SIGNAL(aboutToShow()), this, SLOT(onShowMenu()));
    connect(m_optionsMenu, SIGNAL(aboutToHide()), this, SLOT(onHideMenu()));
}

void MP_WindowClient::updateRightKey()
{
    if (!m_softKey)
        return;
    const QString text = m_downloading ? MP_tr("TXT_RID_SOFTKEY_CANCEL", "Cancel")
                                       : MP_tr("TXT_RID_SOFTKEY_BACK", "Back");
    m_softKey->setText(kRightKey, text, 0);
}

void MP_WindowClient::onShowMenu()
{
    const int screenIndex = getCurrentScreenIndex();
    if (screenIndex != m_screenIndex) {
        m_screenIndex = screenIndex;
        setupMenu();
    }
    if (!isValidScreen(m_screenIndex))
        return;
    refreshMenu();
    refreshItemRules();
    // "Send to" stays visible: its entries decide for themselves.
}

void MP_WindowClient::onHideMenu() {}

void MP_WindowClient::refreshMenu()
{
    const SCREEN_PROPERTY& screen = screenTable[m_screenIndex];
    m_actionList.onUpdate();
    if (screen.sdIndex != -1)
        m_optionsMenu->setItemVisible(screen.sdIndex, STUFF_Global::hasMMCSDCard(true));
    hideDynamicItem(screen.useBTIndex);
    hideDynamicItem(screen.useHSIndex);
}

void MP_WindowClient::refreshItemRules()
{
    // Decided for the item that plays now, not once per screen: stepping to
    // the next song (a preloaded one, say) keeps the screen but not the rules.
    if (!m_optionsMenu || !isValidScreen(m_screenIndex))
        return;
    const SCREEN_ITEM_IDS& items = screenTable[m_screenIndex].checkedItems;
    checkDeleteOrRemoveMenuItem(items.deleteIndex, items.removeIndex);
    refreshLocalSoundItems(items);
    checkBookmarkMenuItem(items.editBookmarkIndex, items.saveBookmarkIndex);
}

void MP_WindowClient::hideDynamicItem(int index)
{
    // Without a registered action the item would offer a command that does
    // nothing: it is hidden until an action claims it.
    const MP_ActionBase* action = m_actionList.getAction(index);
    m_optionsMenu->setItemVisible(index, action && !action->getHided());
}

void MP_WindowClient::refreshLocalSoundItems(const SCREEN_ITEM_IDS& items)
{
    if (items.playlistIndex == -1 && items.buyMoreIndex == -1 && items.ringtoneIndex == -1)
        return;
    const QString path = getCurrentFile();
    const bool isMedia = isMediaFile(path.toUtf8().constData()) != 0;
    if (items.buyMoreIndex != -1)
        m_optionsMenu->setItemVisible(items.buyMoreIndex, isMedia);
    if (items.playlistIndex != -1)
        m_optionsMenu->setItemVisible(items.playlistIndex, isMedia);
    if (m_ringtoneCheck && items.ringtoneIndex != -1) {
        const bool canBeRingtone = STUFF_Global::instance()->canAsRingTone(path);
        m_optionsMenu->setItemVisible(items.ringtoneIndex, canBeRingtone);
        if (canBeRingtone)
            m_optionsMenu->setItemEnabled(items.ringtoneIndex, true);
    }
}

void MP_WindowClient::setupMenu()
{
    if (!m_optionsMenu)
        return;
    if (!isValidScreen(m_screenIndex)) {
        m_optionsMenu->clear();
        return;
    }
    const SCREEN_PROPERTY& screen = screenTable[m_screenIndex];
    m_optionsMenu->setMenu(m_menuParser.get(), QString::fromLatin1(screen.screenName));
    setMenuTextAndSlot(screen.menuItems.items, screen.menuItems.count);
    // The rules that depend on the item being played follow at every opening
    // (refreshItemRules).
    checkBlogMenuItem(screen.blogIndex);
    checkHideDownloadMenuItem(screen.checkedItems.hideDownloadIndex, screen.checkedItems.downloadSetupIndex);
}

void MP_WindowClient::setMenuTextAndSlot(const MENUITEM_PROPERTY* table, int count)
{
    for (int i = 0; i < count; ++i) {
        const MENUITEM_PROPERTY& record = table[i];
        if (std::strcmp(record.textId, MENUITEM_DYNAMIC) == 0) {
            MP_ActionBase* action = m_actionList.getAction(record.id);
            if (!action)
                continue;
            // The registry keeps the action's MP_ActionBase part; the Qt
            // object is the whole MP_SlotAction around it.
            auto* slotAction = static_cast<MP_SlotAction*>(action);
            m_optionsMenu->changeItem(record.id, action->getText(), nullptr);
            connectMenuItem(record.id, slotAction, "1onExecute()");
            continue;
        }
        m_optionsMenu->changeItem(record.id, MP_tr(record.textId, record.defaultText), nullptr);
        if (record.slot)
            connectMenuItem(record.id, this, record.slot);
    }
}

void MP_WindowClient::connectMenuItem(int id, QObject* receiver, const char* slot)
{
    // A record whose command is not a slot of its receiver would leave an
    // item that does nothing when chosen: said in the trace, where the
    // menu tests look for it.
    if (!m_optionsMenu->connectItem(id, receiver, slot))
        WindowClientTrace(3, "MP_WindowClient: item %d cannot run %s\n", id, slot + 1);
}

void MP_WindowClient::checkDeleteOrRemoveMenuItem(int deleteIndex, int removeIndex)
{
    if (removeIndex != -1)
        m_optionsMenu->setItemVisible(removeIndex, isRemovalOffered(Removal::Remove));
    if (deleteIndex != -1)
        m_optionsMenu->setItemVisible(deleteIndex, isRemovalOffered(Removal::Delete));
}

bool MP_WindowClient::isRemovalOffered(Removal removal)
{
    // A single file plays without a list, and there is nothing to take it out
    // of: both items are hidden rather than asking and then doing nothing.
    const QString path = getCurrentFile();
    if (!getCommonPlayer()->getCurrentList() || path.isEmpty())
        return false;
    if (removal == Removal::Remove)
        return m_isUserList;
    if (m_isUserList)
        return false;
    const QString folder = QFileInfo(path).absolutePath();
    return !MYSTUFF_FixedFolder::isPreloadFolder(folder) && QFileInfo(folder).isWritable();
}

void MP_WindowClient::checkBlogMenuItem(int blogIndex)
{
    if (blogIndex != -1)
        m_optionsMenu->setItemVisible(blogIndex, m_blogEnabled);
}

void MP_WindowClient::checkHideDownloadMenuItem(int hideIndex, int setupIndex)
{
    if (hideIndex == -1)
        return;
    m_optionsMenu->setItemVisible(hideIndex, m_downloading);
    m_optionsMenu->setItemEnabled(setupIndex, !m_downloading);
}

void MP_WindowClient::checkBookmarkMenuItem(int editIndex, int saveIndex)
{
    if (editIndex == -1)
        return;
    const bool bookmarksElsewhere = readFlexBit(kBookmarkBit);
    m_optionsMenu->setItemVisible(saveIndex, !bookmarksElsewhere);
    m_optionsMenu->setItemVisible(editIndex, !bookmarksElsewhere && hasBookmarkOfCurrentItem());
}

bool MP_WindowClient::hasBookmarkOfCurrentItem()
{
    forgetBookmarkOfOtherItem();
    return m_bookmarkSaved && !m_bookmark.isEmpty();
}

void MP_WindowClient::forgetBookmarkOfOtherItem()
{
    // The bookmark belongs to the stream it was saved on: on another one,
    // "Edit Bookmark" would edit the wrong stream's bookmark.
    if (m_bookmarkSaved && getCurrentFile() != m_bookmarkPath) {
        m_bookmarkSaved = false;
        m_bookmark = QString();
        m_bookmarkPath = QString();
    }
}

void MP_WindowClient::setDownloading(bool downloading)
{
    if (downloading == m_downloading)
        return;
    m_downloading = downloading;
    if (m_optionsMenu && isValidScreen(m_screenIndex)) {
        const SCREEN_ITEM_IDS& items = screenTable[m_screenIndex].checkedItems;
        checkHideDownloadMenuItem(items.hideDownloadIndex, items.downloadSetupIndex);
    }
    updateRightKey();
}

void MP_WindowClient::updateMetaInfo(const QString&, const QString&, const QString&, QByteArray, bool)
{
    if (!m_optionsMenu)
        initializeMenu();
    // Another item may play now.
    forgetBookmarkOfOtherItem();
    refreshItemRules();
}

void MP_WindowClient::updateListInfo(MP_ListInterface*)
{
    const int mediumType = getCommonPlayer()->getMediumType();
    if (mediumType == MP_MEDIUM_TRANSFER_SESSION)
        initDlmSession();
    else
        closeDlmSession();
    setDownloading(mediumType == MP_MEDIUM_PROGRESSIVE_DOWNLOAD || mediumType == MP_MEDIUM_TRANSFER_SESSION);
    // The list stepped, or another list (or none) plays.
    forgetBookmarkOfOtherItem();
    refreshItemRules();
}

void MP_WindowClient::updateDownloadProgress(int progress, int value)
{
    if (!m_dlmSession)
        return;
    if (!m_sessionStarted) {
        WindowClientTrace(3, "start session!\n");
        m_dlmSession->sessionStart(getPlayingContentName(), getCurrentFile());
        m_sessionStarted = true;
    }
    // The download manager takes the engine's two values the other way round.
    m_dlmSession->transObjProgress(value, unsigned(progress), 0);
}

void MP_WindowClient::updateDownloadComplete()
{
    closeDlmSession();
    setDownloading(false);
}

void MP_WindowClient::updateState(MP_PLAYER_STATE state)
{
    if (state == MP_STATE_ERROR || state == MP_STATE_FINISHED) {
        WindowClientTrace(3, "error happened!\n");
        updateDownloadComplete();
    } else if (state == MP_STATE_STOPPED) {
        // A progressive download cannot be played again once stopped.
        if (m_downloading && getCommonPlayer()->getMediumType() == MP_MEDIUM_PROGRESSIVE_DOWNLOAD)
            emit quitApp();
    }
}

void MP_WindowClient::initDlmSession()
{
    if (!m_dlmSession) {
        m_dlmSession = std::make_unique<MP_DLMSession>(QString(QLatin1String("")), QString(QLatin1String("")),
                                                       nullptr, nullptr);
        connect(m_dlmSession.get(), SIGNAL(signalCancelFromDLM()), this, SLOT(onFTSignalCancelFromDLM()));
    }
    m_sessionStarted = false;
}

void MP_WindowClient::closeDlmSession()
{
    if (!m_dlmSession)
        return;
    disconnect(m_dlmSession.get(), SIGNAL(signalCancelFromDLM()), this, SLOT(onFTSignalCancelFromDLM()));
    m_dlmSession->sessionDone(1, 0);
    m_dlmSession.reset();
    m_sessionStarted = false;
}

void MP_WindowClient::onMessageChannel(const QCString&, const QByteArray&) {}
