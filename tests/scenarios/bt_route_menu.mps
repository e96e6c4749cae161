# The options menu's audio-route entries as Bluetooth power and the headset
# link change, and what choosing them does to the route.
clock manual
action PlayMusicListInMediaplayer isAllArtist=1 isAllAlbum=0 "Album=Paper Boats" isAllGenre=1 isAllComposer=1 FirstIndex=0 StorageLocation=2
menu open
bt power on
menu open
menu choose 1016
menu open
menu choose 1017
bt link mono
menu open
bt power off
menu open
quit
