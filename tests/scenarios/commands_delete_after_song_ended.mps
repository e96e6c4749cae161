# Delete is chosen while the first song plays. The question stays open while
# that song ends and the next one starts, and is then answered Yes: the
# answer was about the first song, so nothing is deleted, a notice says why,
# and the second song plays on.
clock manual
advance 1000
menu open
dialog answer 1 after 8000
menu choose 1005
advance 1000
quit
