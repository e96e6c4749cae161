# The setup application switches to shuffle albums while the second song of
# the library plays, after a launch that named another album first.
clock manual
action PlayMusicListInMediaplayer isAllArtist=1 isAllAlbum=1 isAllGenre=1 isAllComposer=1 FirstIndex=0 "FirstAlbum=Paper Boats" StorageLocation=2
next
qcop MEDIAPLAYER_MESSAGE_CHANNEL MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC int:2
next
quit
