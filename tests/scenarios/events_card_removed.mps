# The memory card is taken out while music plays: the player quits.
clock manual
advance 1000
card remove
advance 1000
