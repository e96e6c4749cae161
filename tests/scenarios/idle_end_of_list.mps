# The last song of an album ends while the player is hidden; the idle
# screen's next key, and later its play key, start the album over.
clock manual
action PlayMusicListInMediaplayer isAllArtist=1 isAllAlbum=0 "Album=Paper Boats" isAllGenre=1 isAllComposer=1 FirstIndex=2 StorageLocation=2
hide
advance 8000
qcop /MP/Idle/Channel /MP/Idle/Req/Next
advance 19000
qcop /MP/Idle/Channel /MP/Idle/Req/Play
advance 1000
quit
