# The playing song is deleted from the options menu: the question is answered
# Yes, the file goes, and once the database has noticed, the next song plays.
clock manual
advance 1000
menu open
dialog answer 1
menu choose 1005
wait 1500
advance 1000
quit
