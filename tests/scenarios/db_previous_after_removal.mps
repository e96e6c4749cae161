# Another program removes two songs before the playing one (Driftwood, at 5),
# and the player steps back before the list has heard of it: the song before
# the playing one plays, not the one after it.
clock manual
advance 100
db remove "Music/Neon Parade/Circuit Bloom/01 Circuit Bloom.wav"
db remove "Music/Árós Quartet/Kvöldljóð/04 Coda.wav"
previous
# The list hears of the change and finds its song again, two places earlier.
wait 1000
next
quit
