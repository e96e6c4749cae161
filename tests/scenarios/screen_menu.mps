# The options menu of a local sound file: opened, then one item chosen.
clock manual
wait 20
advance 1000
menu open
menu choose 1004
quit
