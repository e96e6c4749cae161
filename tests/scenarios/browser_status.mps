# The media browser asks what plays while a single file plays (no list: the
# state alone), and again once a list's first song was announced (that song,
# then the state). A question in another form goes unanswered.
clock manual
wait 20
qcop MF_MSG_CHANNEL queryMPNowPlaying()
wait 20
action PlayMusicListInMediaplayer isAllArtist=0 "Artist=Aurora Lane" isAllAlbum=1 isAllGenre=1 isAllComposer=1 FirstIndex=1 StorageLocation=2
advance 1000
qcop MF_MSG_CHANNEL queryMPNowPlaying(int) int:1
qcop MF_MSG_CHANNEL queryMPNowPlaying()
wait 20
quit
