# The phone's feature bits and the engine's medium and download reports,
# as a script drives them while a passed file plays.
clock manual
wait 20
profile 492 on
engine medium 2
engine progress 30 100
engine complete
engine state 2
quit
