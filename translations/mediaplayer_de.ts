<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name></name>
    <message id="TXT_RID_SOFTKEY_OPTIONS">
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message id="TXT_RID_SOFTKEY_BACK">
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message id="TXT_RID_SOFTKEY_CANCEL">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message id="TXT_RID_OPTION_HIDE">
        <source>Hide</source>
        <translation>Ausblenden</translation>
    </message>
    <message id="TXT_RID_OPTION_HIDE_DOWNLOAD">
        <source>Hide Download</source>
        <translation>Download ausblenden</translation>
    </message>
    <message id="TXT_RID_OPTION_MANAGE">
        <source>Manage</source>
        <translation>Verwalten</translation>
    </message>
    <message id="TXT_RID_OPTION_PROPERTIES">
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message id="TXT_RID_OPTION_DELETE">
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message id="TXT_RID_OPTION_REMOVE">
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message id="TXT_RID_OPTION_SEND_TO">
        <source>Send to</source>
        <translation>Senden an</translation>
    </message>
    <message id="TXT_RID_OPTION_MESSAGE">
        <source>Message</source>
        <translation>Nachricht</translation>
    </message>
    <message id="TXT_RID_OPTION_EMAIL">
        <source>Email</source>
        <translation>E-Mail</translation>
    </message>
    <message id="TXT_RID_OPTION_BLOG">
        <source>Blog</source>
        <translation>Blog</translation>
    </message>
    <message id="TXT_RID_OPTION_MEMORY_CARD">
        <source>Memory Card</source>
        <translation>Speicherkarte</translation>
    </message>
    <message id="TXT_RID_OPTION_BLUETOOTH">
        <source>Bluetooth</source>
        <translation>Bluetooth</translation>
    </message>
    <message id="TXT_RID_OPTION_USE_BLUETOOTH">
        <source>Use Bluetooth</source>
        <translation>Bluetooth verwenden</translation>
    </message>
    <message id="TXT_RID_OPTION_USE_HANDSET">
        <source>Use Handset</source>
        <translation>Telefon verwenden</translation>
    </message>
    <message id="TXT_RID_OPTION_APPLY_TO">
        <source>Apply to</source>
        <translation>Verwenden als</translation>
    </message>
    <message id="TXT_RID_OPTION_PLAYLIST">
        <source>Playlist</source>
        <translation>Wiedergabeliste</translation>
    </message>
    <message id="TXT_RID_OPTION_RINGTONE">
        <source>Ringtone</source>
        <translation>Klingelton</translation>
    </message>
    <message id="TXT_RID_OPTION_APPLY_TO_VIDEO_ALBUM">
        <source>Video Album</source>
        <translation>Videoalbum</translation>
    </message>
    <message id="TXT_RID_OPTION_BUY_MORE">
        <source>Buy More</source>
        <translation>Mehr kaufen</translation>
    </message>
    <message id="TXT_RID_OPTION_SETUP">
        <source>Setup</source>
        <translation>Einstellungen</translation>
    </message>
    <message id="TXT_RID_OPTION_ZOOM">
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message id="TXT_RID_OPTION_FIT_TO_SCREEN">
        <source>Fit to screen</source>
        <translation>An Bildschirm anpassen</translation>
    </message>
    <message id="TXT_RID_OPTION_100_PERCENT">
        <source>100(%)</source>
        <translation>100 (%)</translation>
    </message>
    <message id="TXT_RID_OPTION_SLIDESHOW">
        <source>Slideshow</source>
        <translation>Diashow</translation>
    </message>
    <message id="TXT_RID_OPTION_SAVE_BOOKMARK">
        <source>Save Bookmark</source>
        <translation>Lesezeichen speichern</translation>
    </message>
    <message id="TXT_RID_OPTION_EDIT_BOOKMARK">
        <source>Edit Bookmark</source>
        <translation>Lesezeichen bearbeiten</translation>
    </message>
    <message id="TXT_RID_HEADER_CANNOT_OPEN">
        <source>Cannot Open</source>
        <translation>Öffnen nicht möglich</translation>
    </message>
    <message id="TXT_RID_INSTRUCTIONALTXT_BECAUSE_THE_FILES_DO_NOT_EXIST">
        <source>Because the files do not exist.</source>
        <translation>Weil die Dateien nicht vorhanden sind.</translation>
    </message>
    <message id="TXT_RID_HEADER_CANCEL_DOWNLOAD">
        <source>Cancel Download</source>
        <translation>Download abbrechen</translation>
    </message>
    <message id="FMT_RID_INSTRUCTIONALTXT_YOU_ARE_CURRENTLY_DOWNLOADING_COLON_1_CHOOSING_YES_WILL_CANCEL_THIS_DOWNLOAD_DO_YOU_WANT_TO_CONTINUE">
        <source>You are currently downloading: %1.  Choosing Yes will cancel this download. Do you want to continue?</source>
        <translation>Sie laden gerade herunter: %1.  Mit Ja wird dieser Download abgebrochen. Möchten Sie fortfahren?</translation>
    </message>
    <message id="TXT_RID_HEADER_DELETE">
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message id="TXT_RID_INSTRUCTIONALTXT_DELETE_THIS_FILE">
        <source>Are you sure you want to delete this file?</source>
        <translation>Möchten Sie diese Datei wirklich löschen?</translation>
    </message>
    <message id="TXT_RID_HEADER_REMOVE">
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message id="TXT_RID_INSTRUCTIONALTXT_REMOVE_THIS_FILE">
        <source>Are you sure you want to remove this file?</source>
        <translation>Möchten Sie diese Datei wirklich entfernen?</translation>
    </message>
    <message id="TXT_RID_INSTRUCTIONALTXT_FILE_NO_LONGER_PLAYING">
        <source>The file you chose is no longer playing. Nothing was changed.</source>
        <translation>Die gewählte Datei wird nicht mehr abgespielt. Es wurde nichts geändert.</translation>
    </message>
    <message id="TXT_RID_INSTRUCTIONALTXT_FILE_NOT_DELETED">
        <source>The file was not deleted: it was changed or replaced since it was listed, or it cannot be deleted.</source>
        <translation>Die Datei wurde nicht gelöscht: Sie wurde seit dem Einlesen geändert oder ersetzt, oder sie kann nicht gelöscht werden.</translation>
    </message>
    <message id="TXT_RID_HEADER_BUY_MORE">
        <source>Buy More</source>
        <translation>Mehr kaufen</translation>
    </message>
    <message id="TXT_RID_INSTRUCTIONALTXT_THIS_SONG_HAS_BEEN_MARKED_DURING_SYNCHRONIZATION_WITH_A_PC_YOU_WILL_BE_PROMPTED_TO_BUY_MORE">
        <source>This song has been marked. During synchronization with a PC you will be prompted to buy more related content.</source>
        <translation>Dieser Titel wurde markiert. Beim Abgleich mit einem PC werden Sie aufgefordert, weitere passende Inhalte zu kaufen.</translation>
    </message>
    <message id="TXT_RID_INSTRUCTIONALTXT_BECAUSE_THE_FILE_DOESNT_EXIST">
        <source>Because the file does not exist.</source>
        <translation>Weil die Datei nicht vorhanden ist.</translation>
    </message>
    <message id="FMT_RID_INSTRUCTIONALTXT_SENDING_COLON_1">
        <source>Sending: %1</source>
        <translation>Senden: %1</translation>
    </message>
    <message id="TXT_RID_INSTRUCTIONALTXT_YOU_HAVE_SUCCESSFULLY_SENT_COLON">
        <source>You have successfully sent:</source>
        <translation>Erfolgreich gesendet: </translation>
    </message>
    <message id="FMT_RID_STANDARD_1_FILES">
        <source>%1 files</source>
        <translation>%1 Dateien</translation>
    </message>
    <message id="HOST_BUTTON_OK">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="HOST_BOOKMARK_TITLE">
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message id="HOST_BOOKMARK_ADDRESS">
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message id="HOST_BOOKMARK_NO_ADDRESS">
        <source>Enter an address: a bookmark without one opens nothing.</source>
        <translation>Geben Sie eine Adresse ein: Ein Lesezeichen ohne Adresse öffnet nichts.</translation>
    </message>
    <message id="HOST_BOOKMARK_TOO_LONG">
        <source>The title and address are too long to store.</source>
        <translation>Titel und Adresse sind zu lang zum Speichern.</translation>
    </message>
    <message id="HOST_BOOKMARK_GONE">
        <source>This bookmark is no longer stored.</source>
        <translation>Dieses Lesezeichen ist nicht mehr gespeichert.</translation>
    </message>
    <message id="HOST_BOOKMARK_NOT_SAVED">
        <source>The bookmark could not be saved: the disk is full or read-only.</source>
        <translation>Das Lesezeichen konnte nicht gespeichert werden: Der Datenträger ist voll oder schreibgeschützt.</translation>
    </message>
    <message id="HOST_SETUP_MUSIC">
        <source>Music Setup</source>
        <translation>Musik-Einstellungen</translation>
    </message>
    <message id="HOST_SETUP_VIDEO">
        <source>Video Setup</source>
        <translation>Video-Einstellungen</translation>
    </message>
    <message id="HOST_SETUP_SHUFFLE">
        <source>Shuffle</source>
        <translation>Zufallswiedergabe</translation>
    </message>
    <message id="HOST_SETUP_REPEAT">
        <source>Repeat</source>
        <translation>Wiederholen</translation>
    </message>
    <message id="HOST_SETUP_OFF">
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message id="HOST_SETUP_ON">
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message id="HOST_SETUP_SONGS">
        <source>Songs</source>
        <translation>Titel</translation>
    </message>
    <message id="HOST_SETUP_ALBUMS">
        <source>Albums</source>
        <translation>Alben</translation>
    </message>
    <message id="HOST_DETAILS">
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message id="HOST_DETAILS_BYTES">
        <source>%2 bytes</source>
        <translation>%2 Bytes</translation>
    </message>
</context>
</TS>
