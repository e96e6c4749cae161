# Line 4 names a command that does not exist.
clock manual
wait 10
frobnicate now
quit
