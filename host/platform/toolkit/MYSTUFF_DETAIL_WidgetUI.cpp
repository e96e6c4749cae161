#include "platform/MYSTUFF_DETAIL_WidgetUI.h"

#include <QJsonArray>
#include <QJsonObject>

#include "host/platform/HostJournal.h"
#include "host/platform/toolkit/HostDetailsDialog.h"
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
    const QJsonValue info = m_hasInfo ? QJsonValue(QJsonObject{{"title", m_info.title},
                                                               {"artist", m_info.artist},
                                                               {"album", m_info.album},
                                                               {"durationMs", m_info.durationMs}})
                                      : QJsonValue();
    HostJournal::write(QJsonObject{{"kind", "dialog"}, {"class", "MYSTUFF_DETAIL_WidgetUI"},
                                   {"args", QJsonArray{m_path, info, m_flags}}, {"answer", 1}});
    if (!HostDialogs::isInteractive())
        return 1;
    HostDetailsDialog(m_path, m_hasInfo ? &m_info : nullptr).exec();
    return 1;
}
