#pragma once
// What the player can do with the media file it shows, other than playing
// it: send it, apply it, show its properties, keep it as a bookmark, mark it
// for buying more. Every operation takes the file's full path and hands the
// work to a phone service; this class supplies the request, the file check
// before sending, the dialogs and the memory-card copy with its progress.

#include <QString>

struct MediaMetaInfo;

class MP_ShareUtility {
public:
    /** True when @p path exists; otherwise shows the "file does not exist"
     *  notice and returns false. Every send starts with it. */
    static bool checkFile(const QString& path);

    /** Asks the message composer for a message with the file attached. */
    static void sendToMessage(const QString& path);
    /** The message request, marked as a blog post. */
    static void sendToBlog(const QString& path);
    /** Starts an e-mail with the file attached. */
    static void sendToEmail(const QString& path);
    /** Pushes the file over Bluetooth. */
    static void sendToBluetooth(const QString& path);
    /** Copies the file to the memory card under a progress notice; on success
     *  tells the user so. A failed copy shows nothing here (the file service reports it). */
    static void sendToRemovableMedia(const QString& path);

    /** Makes the file the phone's ringtone; an empty path does nothing. */
    static void applyToRingtone(const QString& path);
    /** Makes the file the wallpaper; an empty path does nothing. */
    static void applyToWallpaper(const QString& path);
    /** Hands the file to the address book for a new contact. False when the
     *  address book is not installed or refuses. */
    static bool applyToNewContact(const QString& path);
    /** Hands the file to the address book for an existing contact. False when
     *  the address book is not installed or refuses. */
    static bool applyToExistingContact(const QString& path);
    /** Hands a media file to the media service's apply-to function. False for
     *  a file that is not media (the function is then not looked up), when the
     *  function is not in the process, or when it refuses. */
    static bool applyToPlaylist(const QString& path);

    /** The file's details dialog, with @p info when not null; the
     *  "Cannot Open" dialog when the file does not exist. */
    static void showProperty(const QString& path, MediaMetaInfo* info);
    /** Edits the bookmark stored at @p path; the "Cannot Open" dialog when it does not exist. */
    static void editBookmark(const QString& path);
    /** Adds a bookmark for @p path; @p result receives the bookmark's identity
     *  (empty when the bookmark service stored nothing). */
    static void saveBookmark(const QString& path, QString& result);
    /** Sets the buy flag of @p path in the media database; true when it took it. */
    static bool setBuyMoreFlag(const QString& path);
};
