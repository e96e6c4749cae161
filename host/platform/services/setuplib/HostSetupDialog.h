#pragma once
// The setup screen of the player's setup library: shuffle and repeat of one
// kind of media (music or video), read from and written to the player's
// settings store. On acceptance the changed values are also announced on
// the setup-change channel, as the phone's setup application does, so that
// a list that plays follows them at once.

#include <QString>

#include <memory>

class QCheckBox;
class QComboBox;
class QDialog;

class HostSetupDialog {
public:
    /** @p kind 0 for music, 1 for video. */
    explicit HostSetupDialog(int kind);
    ~HostSetupDialog();
    HostSetupDialog(const HostSetupDialog&) = delete;
    HostSetupDialog& operator=(const HostSetupDialog&) = delete;

    /** The setup window, built on the first call from the stored values and not
     *  shown: accepting it (OK) applies the choices, Cancel changes nothing. */
    QDialog& window();
    /** Shows the window modally until the user closes it. */
    void exec();

    /** Stores @p shuffle and @p repeat and announces the ones that changed. */
    void apply(int shuffle, bool repeat);

    int storedShuffle() const;
    bool storedRepeat() const;

private:
    bool m_video;
    QString m_shuffleKey;
    QString m_repeatKey;
    std::unique_ptr<QDialog> m_window;  ///< null until window() builds it
    // Children of m_window, deleted with it.
    QComboBox* m_shuffle = nullptr;
    QCheckBox* m_repeat = nullptr;
};
