# Every song of the playing album leaves the database: the player quits.
clock manual
advance 1000
db remove "Music/Aurora Lane/Paper Boats/01 Paper Boats.wav"
db remove "Music/Aurora Lane/Paper Boats/02 Rain on Glass.wav"
db remove "Music/Aurora Lane/Paper Boats/03 Lanterns.wav"
wait 1500
quit
