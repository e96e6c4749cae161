# The launch action plays an artist's songs from the fourth one.
clock manual
advance 1000
quit
