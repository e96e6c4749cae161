# A folder plays, and its first song is deleted from the options menu: the
# next song of the folder plays, since files remain.
clock manual
advance 1000
menu open
dialog answer 1
menu choose 1005
advance 1000
quit
