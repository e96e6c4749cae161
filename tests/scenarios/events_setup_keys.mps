# The player screen's shuffle key, then its repeat key, each pressed and
# released; the repeat key turns shuffle off again.
clock manual
advance 1000
setupkey 0x4002 pressed
setupkey 0x4002 released
setupkey 16387 pressed
setupkey 16387 released
advance 1000
quit
