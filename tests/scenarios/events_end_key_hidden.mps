# The end key after the player was hidden to the idle screen: without the
# focus, it leaves as the flip closing would, and music plays on hidden.
clock manual
advance 1000
hide
endkey
advance 1000
quit
