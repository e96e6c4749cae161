# The playing song is removed from the play list: the next one plays.
clock manual
advance 1000
remove
wait 1500
advance 1000
quit
