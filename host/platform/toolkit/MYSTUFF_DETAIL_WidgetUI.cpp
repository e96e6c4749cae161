#include "platform/MYSTUFF_DETAIL_WidgetUI.h"

#include <QDateTime>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QLocale>
#include <QMessageBox>

#include "host/platform/HostJournal.h"
#include "host/platform/toolkit/HostDialogs.h"

MYSTUFF_DETAIL_WidgetUI::MYSTUFF_DETAIL_WidgetUI(const QString& path, QWidget*, const char*, int flags)
    : m_path(path), m_hasInfo(false), m_flags(flags)
{
}

MYSTUFF_DETAIL_WidgetUI::MYSTUFF_DETAIL_WidgetUI(const QString& path, const MediaMetaInfo& info, QWidget*,
                                                 const char*, int flags)
    : m_path(path), m_hasInfo(true), m_info(info), m_flags(flags)
{
}

int MYSTUFF_DETAIL_WidgetUI::exec()
{
    const QFileInfo file(m_path);
    const QJsonValue info = m_hasInfo ? QJsonValue(QJsonObject{{"title", m_info.title},
                                                               {"artist", m_info.artist},
                                                               {"album", m_info.album},
                                                               {"durationMs", m_info.durationMs}})
                                      : QJsonValue();
    HostJournal::write(QJsonObject{{"kind", "dialog"}, {"class", "MYSTUFF_DETAIL_WidgetUI"},
                                   {"args", QJsonArray{m_path, info, m_flags}}, {"answer", 1}});
    if (!HostDialogs::isInteractive())
        return 1;
    QString text = QStringLiteral("%1\n%2 bytes\n%3")
                       .arg(file.fileName())
                       .arg(file.size())
                       .arg(QLocale().toString(file.lastModified(), QLocale::ShortFormat));
    if (m_hasInfo)
        text += QStringLiteral("\n%1\n%2\n%3").arg(m_info.title, m_info.artist, m_info.album);
    QMessageBox::information(nullptr, QStringLiteral("Details"), text);
    return 1;
}
