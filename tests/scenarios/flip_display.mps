# The flip closes while a list plays: the external display shows the song at
# once and drives the player. Stopped, the player keeps the display when the
# flip opens; playing again, the next flip change takes it away.
clock manual
advance 1000
flip closed
display next
display shift -500
display volume 3
display stop
flip open
display play
flip closed
flip open
# No display client is left: a script error.
display pause
