# A folder plays from its first song to its last; stepping back from the
# first song stays on it.
clock manual
previous
advance 8000
advance 8000
advance 8000
quit
