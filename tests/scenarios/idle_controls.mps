# Hidden to the idle screen, the player is paused, wound on, resumed, skipped
# and quit from the idle screen's plug-in.
clock manual
action PlayMusicListInMediaplayer isAllArtist=1 isAllAlbum=0 "Album=Northern Lights" isAllGenre=1 isAllComposer=1 FirstIndex=1 StorageLocation=2
hide
advance 1000
qcop /MP/Idle/Channel /MP/Idle/Req/Pause
qcop /MP/Idle/Channel /MP/Idle/Req/Seek/Forth int:1
qcop /MP/Idle/Channel /MP/Idle/Req/Seek/END
qcop /MP/Idle/Channel /MP/Idle/Req/Play
qcop /MP/Idle/Channel /MP/Idle/Req/Next
advance 1000
qcop /MP/Idle/Channel /MP/Idle/Req/Quit
quit
