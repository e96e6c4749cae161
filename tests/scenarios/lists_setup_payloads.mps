# The setup messages arrive with payloads too short to hold their value, or
# with a shuffle mode that does not exist, while shuffle and repeat are on.
clock manual
setting MediaControlItem MusicShuffle int:1
setting MediaControlItem MusicRepeat bool:true
action PlayMusicListInMediaplayer isAllArtist=1 isAllAlbum=1 isAllGenre=1 isAllComposer=1 FirstIndex=0 StorageLocation=2
qcop MEDIAPLAYER_MESSAGE_CHANNEL MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC
qcop MEDIAPLAYER_MESSAGE_CHANNEL MP_MSG_SETUP_CHANGE_REPEAT_MUSIC i8:0
qcop MEDIAPLAYER_MESSAGE_CHANNEL MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC raw:000000
qcop MEDIAPLAYER_MESSAGE_CHANNEL MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC int:3
qcop MEDIAPLAYER_MESSAGE_CHANNEL MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC int:-1
quit
