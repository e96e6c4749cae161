#pragma once
// Value types shared by the library and the playback engine library.

/** Engine state carried by MP_PlayerListener::updateState and MP_PlayerControl::getState. */
enum MP_PLAYER_STATE {
    MP_STATE_NONE = 0,
    MP_STATE_PLAYING = 1,
    MP_STATE_PAUSED = 2,
    MP_STATE_3 = 3,
    MP_STATE_4 = 4,
    MP_STATE_STOPPED = 5,
    MP_STATE_6 = 6,
    MP_STATE_ERROR = 7,
    MP_STATE_FINISHED = 8,
};

/** Content type of the current media. 0 means not known yet. */
enum MP_CONTENT_TYPE {
    MP_CONTENT_UNKNOWN = 0,
    MP_CONTENT_SOUND = 1,
    MP_CONTENT_VIDEO = 2,
};

/** Medium of the current media as MP_CommonPlayer::getMediumType reports it. */
enum MP_MEDIUM_TYPE {
    MP_MEDIUM_LOCAL = 0,
    MP_MEDIUM_STREAM = 1,
    MP_MEDIUM_PROGRESSIVE_DOWNLOAD = 2,
    MP_MEDIUM_TRANSFER_SESSION = 3,
};

/** How the player was launched; passed to MP_CreateCommonPlayer. 32 bits wide. */
enum MP_LAUNCH_TYPE {
    MP_LAUNCH_LIST = 0,
    MP_LAUNCH_FILE = 1,
    MP_LAUNCH_CAPTURED_VIDEO = 2,
};
