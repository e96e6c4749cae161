# The playing song of a user play list is removed from the options menu: first
# answered No (nothing changes), then Yes. The list itself answers later,
# when the database reports the group change.
clock manual
advance 1000
menu open
menu choose 1006
menu choose 1006
dialog answer 1
menu choose 1006
wait 1500
advance 1000
quit
