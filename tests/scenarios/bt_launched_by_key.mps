# Run with the launch action PlayMediaInMediaPlayer Launcher=BTAvrcpKeys: the
# player started by a headset key resumes the last list; until the first play
# or pause key (0x1052), other keys (next, 0x1055) are ignored.
clock manual
qcop VEMO/KeyEvent "keyMsg(int,int)" int:4181 int:2
qcop VEMO/KeyEvent "keyMsg(int,int)" int:4178 int:2
qcop VEMO/KeyEvent "keyMsg(int,int)" int:4181 int:2
quit
