# The setup application changes shuffle and repeat while a list plays.
clock manual
qcop MEDIAPLAYER_MESSAGE_CHANNEL MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC int:1
qcop MEDIAPLAYER_MESSAGE_CHANNEL MP_MSG_SETUP_CHANGE_REPEAT_MUSIC int:1
quit
