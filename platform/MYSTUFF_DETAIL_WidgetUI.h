#pragma once
// The file manager's details dialog: name, size, date and, for media, what
// the player knows of it.

#include <QString>

class QWidget;

/** What the player knows of a media file. */
struct MediaMetaInfo {
    QString title;
    QString artist;
    QString album;
    int durationMs = 0;
};

class MYSTUFF_DETAIL_WidgetUI {
public:
    /** Details of the file at @p path; @p name and @p flags are the widget's. */
    MYSTUFF_DETAIL_WidgetUI(const QString& path, QWidget* parent, const char* name, int flags);
    /** The same with the player's @p info (copied). */
    MYSTUFF_DETAIL_WidgetUI(const QString& path, const MediaMetaInfo& info, QWidget* parent, const char* name,
                            int flags);
    /** Shows the dialog until the user closes it; returns 1. */
    int exec();

private:
    QString m_path;
    bool m_hasInfo;
    MediaMetaInfo m_info;
    int m_flags;
};
