# The headset's next key on the last song of an album: the player asks the
# engine for the next song; the headset, unlike the idle screen, does not
# start the album over.
clock manual
action PlayMusicListInMediaplayer isAllArtist=1 isAllAlbum=0 "Album=Paper Boats" isAllGenre=1 isAllComposer=1 FirstIndex=2 StorageLocation=2
advance 1000
qcop VEMO/KeyEvent "keyMsg(int,int)" int:4181 int:1
qcop VEMO/KeyEvent "keyMsg(int,int)" int:4181 int:2
advance 1000
quit
