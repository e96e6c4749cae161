#pragma once
// The full-screen player's controls: the soft-key bar's left key "Options"
// with the options menu behind it, and the right key "Back" ("Cancel" while
// a download runs). The client follows the engine's reports to keep the menu
// fitting what plays (one of eight screens: sound or video; local file,
// stream, progressive download or download through a transfer session), to
// know whether a download is in progress, and to keep the download manager's
// transfer session open while one is.
//
// The menu is created at the first meta-information report, gets its items
// at its first opening, is rebuilt whenever it opens on another screen than
// the last time, and has its visibility refreshed at every opening. The
// items that depend on the item being played (Delete or Remove, the local
// sound items, Edit Bookmark) are decided anew at every opening and whenever
// the engine reports another item or list.
//
// The commands behind the menu items and the Back key act on the item being
// played (getCurrentFile()); they live in MP_WindowClientCommands.cpp (the
// player itself) and MP_WindowClientShareCommands.cpp (the share utility).

#include <QPointer>
#include <QString>

#include <memory>

#include "clients/MP_AbstractClient.h"
#include "platform/Qt2Compat.h"
#include "screen/MP_ActionList.h"

class MP_CommonPlayer;
class MP_DLMSession;
class MP_SlotAction;
class QCopChannel;
class VmOptionsMenu;
class VmSoftKey;
class menu;
struct MENUITEM_PROPERTY;
struct SCREEN_ITEM_IDS;

class MP_WindowClient : public MP_AbstractClient {
    Q_OBJECT
public:
    /** Registers with @p player (not owned, must outlive the client), shows
     *  "Back" on the right key and opens a transfer session when the engine
     *  already plays a download through one. */
    explicit MP_WindowClient(MP_CommonPlayer* player);
    /** Closes the transfer session; the options menu stays with its parent
     *  widget, and no registered action is destroyed. */
    ~MP_WindowClient() override;

    /** Whether the list is a user play list (Remove instead of Delete); the
     *  menu follows at once. */
    void setUserList(bool userList);
    /** Whether Back hides the player rather than quitting it. */
    void setBackHide(bool backHide);
    bool isUserList() const { return m_isUserList; }
    bool isBackHide() const { return m_isBackHide; }

    /** Registers @p action under its item id (replacing another); null is ignored. */
    void addDynamicMenuItem(MP_SlotAction* action);
    /** Unregisters whatever action holds @p action's item id; null is ignored. */
    void removeDynamicMenuItem(MP_SlotAction* action);

    /** Whether leaving the player may go on: true without a download; while
     *  one runs, asks whether to cancel it and, on Yes, cancels it. */
    bool confirmQuit();
    /** Whether leaving the player hides it rather than ending it: sound that
     *  is playing or paused. */
    bool willHide();

    /** The options menu; null before the first meta-information report. */
    VmOptionsMenu* getMenu() const;
    /** The screen (0..7) matching the engine's content and medium types, -1 for none. */
    int getCurrentScreenIndex();
    /** The menu name of screen @p index; a null string outside 0..7. */
    QString getScreenName(int index) const;
    /** Path of the item being played: the current list's current entry, or
     *  the engine's single file when it plays without a list. */
    QString getCurrentFile();

    /** Marks a download in progress or not: the right key and, on the
     *  download screens, "Hide Download" and "Setup" follow. Setting the
     *  stored value again changes nothing. */
    void setDownloading(bool downloading);
    bool isDownloading() const { return m_downloading; }

    // MP_PlayerListener / MP_ListListener
    void updateState(MP_PLAYER_STATE state) override;
    void updateDownloadProgress(int progress, int value) override;
    void updateDownloadComplete() override;
    void updateMetaInfo(const QString& title, const QString& artist, const QString& album, QByteArray data,
                        bool canSeek) override;
    void updateListInfo(MP_ListInterface* list) override;

Q_SIGNALS:
    /** The main window closes the player screen. */
    void closePlayer();
    /** The main window hides the player and playback goes on. */
    void hidePlayer();
    /** The main window ends the session. */
    void quitApp();
    /** The current item changed because this client removed one. */
    void signalCurrentChanged();
    /** The engine's setup-key event, forwarded unchanged. */
    void signalSetupKeyClicked(int key, bool pressed);

private Q_SLOTS:
    void onShowMenu();
    void onHideMenu();
    void onBackClicked();
    void onMenuSetup();
    void onMenuUseBluetooth();
    void onMenuUseHandset();
    void onMenuProperties();
    void onMenuSlotSendToMessage();
    void onMenuSlotSendToEmail();
    void onMenuSlotSendToBlog();
    void onMenuSlotSendToRemovableMedia();
    void onMenuSlotSendToBluetooth();
    void onMenuSlotApplyToRingtone();
    void onMenuDelete();
    void onMenuRemove();
    void onMenuPlaylist();
    void onNormalSize();
    void onOriginalSize();
    void onMenuHide();
    void onMenuHidePD();
    void onMenuSlideshow();
    void onFTSignalCancelFromDLM();
    void onMenuBuyMore();
    void onMenuEditBookmark();
    void onMenuSaveBookmark();
    /** File-manager messages are listened to and ignored. */
    void onMessageChannel(const QCString& message, const QByteArray& data);

private:
    void initializeMenu();
    void updateRightKey();
    void setupMenu();
    void refreshMenu();
    void refreshLocalSoundItems(const SCREEN_ITEM_IDS& items);
    void setMenuTextAndSlot(const MENUITEM_PROPERTY* table, int count);
    void connectMenuItem(int id, QObject* receiver, const char* slot);
    void checkDeleteOrRemoveMenuItem(int deleteIndex, int removeIndex);
    void checkBlogMenuItem(int blogIndex);
    void checkHideDownloadMenuItem(int hideIndex, int setupIndex);
    void checkBookmarkMenuItem(int editIndex, int saveIndex);
    void hideDynamicItem(int index);
    /** Whether the engine's control is playing or paused (states 1 to 4). */
    bool isPlayingPause();
    /** Tells the download manager that the user cancelled a progressive
     *  download, or closes the transfer session. */
    void cancelDownload();
    /** The two ways of taking the current item out: Delete (the file goes)
     *  and Remove (it leaves a user play list). */
    enum class Removal { Delete, Remove };
    /** The item a Delete or Remove was chosen on, taken before the question. */
    struct ChosenItem {
        MP_ListInterface* list = nullptr;  // the engine's list; not owned
        int index = -1;
        QString path;
    };
    /** Whether @p removal applies to what plays now: a list plays, Remove
     *  only in a user play list, Delete only outside one and only for a file
     *  in a folder that is neither preloaded nor read-only. */
    bool isRemovalOffered(Removal removal);
    ChosenItem currentItem();
    /** Whether @p chosen is still the engine's list's current item. */
    bool isStillCurrent(const ChosenItem& chosen);
    /** Asks, then takes out the item that was current when the command was chosen. */
    void confirmAndRemove(Removal removal);
    /** Removes the current item from the engine's list; quits when that
     *  empties it, else moves playback to the new current item. False when
     *  the list refused at once. */
    bool removeCurrent();
    /** An information notice with one button. */
    static void showNotice(const QString& title, const QString& text);
    /** Re-decides the menu items that depend on the item being played. */
    void refreshItemRules();
    /** Forgets a saved bookmark once another item plays. */
    void forgetBookmarkOfOtherItem();
    bool hasBookmarkOfCurrentItem();
    void initDlmSession();
    void closeDlmSession();

    std::unique_ptr<menu> m_menuParser;
    /** Owned by the engine's main widget, which may go first. */
    QPointer<VmOptionsMenu> m_optionsMenu;
    VmSoftKey* m_softKey;  // the main widget's bar; not owned, null without a main widget
    bool m_downloading;
    bool m_blogEnabled;     // feature bit 149
    bool m_ringtoneCheck;   // feature bit 512
    bool m_isUserList;
    bool m_isBackHide;
    /** Screen whose menu is built now (0..7), -1 for none. */
    int m_screenIndex;
    bool m_menuInitialized;
    std::unique_ptr<MP_DLMSession> m_dlmSession;  // only while a download goes through a transfer session
    /** The session was started at a progress report since it was (re)opened. */
    bool m_sessionStarted;
    MP_ActionList m_actionList;  // registered actions, not owned
    QString m_bookmark;          // the bookmark saved for the current stream
    bool m_bookmarkSaved;        // a save stored a bookmark (m_bookmark) for m_bookmarkPath
    QString m_bookmarkPath;      // the stream the bookmark was saved for
    std::unique_ptr<QCopChannel> m_fileManagerChannel;

    Q_DISABLE_COPY(MP_WindowClient)
};
