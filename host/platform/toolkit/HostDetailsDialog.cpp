#include "host/platform/toolkit/HostDetailsDialog.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLocale>
#include <QPushButton>

#include "platform/TextResources.h"

HostDetailsDialog::HostDetailsDialog(const QString& path, const MediaMetaInfo* info, QWidget* parent)
    : QMessageBox(QMessageBox::Information, MP_tr("HOST_DETAILS", "Details"), describe(path, info), QMessageBox::Ok,
                  parent)
{
    button(QMessageBox::Ok)->setText(MP_tr("HOST_BUTTON_OK", "OK"));
}

QString HostDetailsDialog::describe(const QString& path, const MediaMetaInfo* info)
{
    const QFileInfo file(path);
    QString text = (QStringLiteral("%1\n") + MP_tr("HOST_DETAILS_BYTES", "%2 bytes") + QStringLiteral("\n%3"))
                       .arg(file.fileName())
                       .arg(file.size())
                       .arg(QLocale().toString(file.lastModified(), QLocale::ShortFormat));
    if (info)
        text += QStringLiteral("\n%1\n%2\n%3").arg(info->title, info->artist, info->album);
    return text;
}
