# The headset's forward key (0x1054) held for three key-repeat intervals of
# 300 ms on the manual clock, then let go; the phone lock then swallows a
# next key (0x1055).
clock manual
action PlayMusicListInMediaplayer isAllArtist=1 isAllAlbum=0 "Album=Paper Boats" isAllGenre=1 isAllComposer=1 FirstIndex=0 StorageLocation=2
advance 1000
qcop VEMO/KeyEvent "keyMsg(int,int)" int:4180 int:1
advance 900
qcop VEMO/KeyEvent "keyMsg(int,int)" int:4180 int:2
advance 1000
lock on
qcop VEMO/KeyEvent "keyMsg(int,int)" int:4181 int:2
lock off
quit
