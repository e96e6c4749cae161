# A launch names a first index far past the end of the library, with repeat on.
clock manual
setting MediaControlItem MusicRepeat bool:true
action PlayMusicListInMediaplayer isAllArtist=1 isAllAlbum=1 isAllGenre=1 isAllComposer=1 FirstIndex=2147483647 StorageLocation=2
next
quit
