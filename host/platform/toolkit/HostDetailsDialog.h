#pragma once
// The details window of a file: its name, size and date and, for media,
// what the player knows of it (title, artist, album), with one OK button.
// Built without being shown: exec() runs it modally, as the file manager's
// details dialog does at a display; a test may show() it and press OK.

#include <QMessageBox>

#include "platform/MYSTUFF_DETAIL_WidgetUI.h"

class HostDetailsDialog : public QMessageBox {
    Q_OBJECT

public:
    /** The details of the file at @p path, with the player's @p info when it is not null. */
    HostDetailsDialog(const QString& path, const MediaMetaInfo* info, QWidget* parent = nullptr);

    /** The lines the window shows: name, "N bytes", date, then title, artist and
     *  album when @p info is not null. */
    static QString describe(const QString& path, const MediaMetaInfo* info);
};
