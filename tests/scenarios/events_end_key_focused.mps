# The end key while the player screen is in front: the player quits.
clock manual
advance 1000
endkey
advance 1000
