# The playing song is sent to the memory card from the options menu: a
# progress notice while it copies, then the success notice.
clock manual
advance 1000
menu open
menu choose 1011
quit
