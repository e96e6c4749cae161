#pragma once
// The setup screen of the player's setup library: shuffle and repeat of one
// kind of media (music or video), read from and written to the player's
// settings store. On acceptance the changed values are also announced on
// the setup-change channel, as the phone's setup application does, so that
// a list that plays follows them at once.

#include <QString>

class HostSetupDialog {
public:
    /** @p kind 0 for music, 1 for video. */
    explicit HostSetupDialog(int kind);

    /** Shows the dialog modally; writes what changed when the user accepts. */
    void exec();

    /** Stores @p shuffle and @p repeat and announces the ones that changed. */
    void apply(int shuffle, bool repeat);

    int storedShuffle() const;
    bool storedRepeat() const;

private:
    bool m_video;
    QString m_shuffleKey;
    QString m_repeatKey;
};
