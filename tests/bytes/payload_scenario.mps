# A fixed walk through what the player says to other applications and hands
# to the metadata service: an artist's songs from the second, to the idle
# screen and back, controls from the idle screen and the setup, songs played
# to their ends (the play history), the external display while the flip is
# closed, a play list, and last a launch from the home screen (the player
# runs, so it only shows itself: the last-played list is not read back).
clock manual
action PlayMusicListInMediaplayer isAllArtist=0 "Artist=Aurora Lane" isAllAlbum=1 isAllGenre=1 isAllComposer=1 FirstIndex=1 StorageLocation=2
advance 2500
next
hide
advance 1000
qcop /MP/Idle/Channel /MP/Idle/Req/Pause
qcop /MP/Idle/Channel /MP/Idle/Req/Play
qcop /MP/Idle/Channel /MP/Idle/Req/Seek/Forth int:1
qcop /MP/Idle/Channel /MP/Idle/Req/Seek/END
qcop MEDIAPLAYER_MESSAGE_CHANNEL MP_MSG_SETUP_CHANGE_REPEAT_MUSIC i8:1
advance 30000
flip closed
advance 2000
flip open
action PlayUserListInMediaplayer Type=0 GroupObjectID=4 FirstIndex=1 StorageLocation=2
advance 1500
previous
advance 1000
action PlayMediaInMediaPlayer Launcher=HomeScreen
advance 1000
quit
