#pragma once
// The host engine's player screen: labels for title, artist, album, time and
// state laid out on the engine's main widget. The labels belong to the
// widget; the view only keeps them up to date.

#include <QString>

#include "platform/MP_PlayerTypes.h"

class QLabel;
class QWidget;

class HostPlayerView {
public:
    /** Lays the labels out on @p screen (not owned; it must outlive the view).
     *  Their object names are "title", "artist", "album", "time" and "state". */
    explicit HostPlayerView(QWidget& screen);
    HostPlayerView(const HostPlayerView&) = delete;
    HostPlayerView& operator=(const HostPlayerView&) = delete;

    void showMedia(const QString& title, const QString& artist, const QString& album);
    /** Shows "elapsed / total" as m:ss (a stream, total 0, shows the elapsed time alone). */
    void showTime(int elapsed, int total);
    void showState(MP_PLAYER_STATE state);
    /** Nothing is loaded: empties every label but the state. */
    void clearMedia();

    /** The word for a state as a person reads it: "playing", "paused", "stopped", ... */
    static QString stateName(MP_PLAYER_STATE state);
    /** "0:03 / 0:10", or "0:03" for a stream. */
    static QString timeText(int elapsed, int total);

private:
    QLabel* m_title;  // owned by the screen
    QLabel* m_artist; // owned by the screen
    QLabel* m_album;  // owned by the screen
    QLabel* m_time;   // owned by the screen
    QLabel* m_state;  // owned by the screen
};
