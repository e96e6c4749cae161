#pragma once
// The OK and Cancel buttons of the host's own windows, in the player's
// language: Qt's standard buttons would stay English, since the player loads
// no translation of Qt's own.

class QDialogButtonBox;

class HostDialogButtons {
public:
    /** Gives @p buttons' OK and Cancel (those it has) the player's texts. */
    static void translate(QDialogButtonBox& buttons);
};
