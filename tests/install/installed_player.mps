# The installed player plays the whole library (no file, no action) and
# chooses Setup from the options menu of the song that plays.
clock manual
advance 1000
menu open
menu choose 1018
quit
