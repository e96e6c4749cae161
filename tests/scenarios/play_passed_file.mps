# A file passed at creation plays through the library; three seconds of it,
# its options menu opened and one item chosen, then the phone's feature bits
# and the engine's medium and download reports.
clock manual
wait 20
advance 3000
menu open
menu choose 1004
profile 492 on
engine medium 2
engine progress 30 100
engine complete
engine state 2
quit
