# The jump key while a video plays quits the player; a release or another
# key before it does nothing.
clock manual
advance 1000
key 0x1048 2
key 4169 1
key 0x1048 1
advance 1000
