# Remove is hidden outside a user list: choosing it is refused.
clock manual
wait 20
menu open
menu choose 1006
quit
