# Back while a progressive download runs: answered No the player stays and
# goes on; answered Yes the download manager is told and the player quits.
clock manual
advance 1000
engine medium 2
softkey right
advance 1000
dialog answer 1
softkey right
quit
