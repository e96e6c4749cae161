# The camera hands over its captured video while the library plays.
clock manual
advance 1000
capturedvideo
advance 1000
quit
