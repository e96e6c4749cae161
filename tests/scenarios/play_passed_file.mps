# A file passed at creation plays through the library; three seconds of it.
clock manual
wait 20
advance 3000
quit
