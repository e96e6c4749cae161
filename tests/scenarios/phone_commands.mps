# The phone's events, one script command each, while an album plays: the flip
# and the external display, a return-to-idle request, a key, the phone lock,
# the Bluetooth radio and headset link, a setup key, a new theme, the
# application icon, hiding, the end key, and last the memory card, whose
# removal ends the player. The return-to-idle request also by its old name.
clock manual
advance 1000
flip closed
display next
flip open
returntoidle -5002
returnToIdle -5002
key 0x1049 1
lock on
lock off
bt power on
bt link mono
bt power off
setupkey 0x4003 released
theme
appicon
hide
endkey
card remove
