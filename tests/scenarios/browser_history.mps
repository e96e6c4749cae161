# Three songs of a list play to their ends, a time report every second; each
# goes into the play history once, and the browser hears of each.
clock manual
advance 25000
quit
