# The flip closes while something plays: the phone tells the player of the
# flip and then asks it to return to the idle screen. Music plays on hidden,
# shown on the external display; a video quits.
clock manual
advance 1000
flip closed
returnToIdle -5001
advance 1000
display next
