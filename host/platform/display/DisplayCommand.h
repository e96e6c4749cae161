#pragma once
// One command of the user on the external display, as the host sends it to
// the media player's feature client (HostDisplay::send).

struct DisplayCommand {
    enum class Kind { Play, Pause, Stop, Next, Previous, Shift, ShiftFinished, Exit, Mute, Volume };

    Kind kind = Kind::Play;
    /** Shift: the signed offset; Mute: 1 on, 0 off; Volume: the level 0..255; else unused. */
    int value = 0;
};
