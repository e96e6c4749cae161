#include "platform/MYSTUFF_FS_Opr.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

#include "host/platform/HostJournal.h"
#include "host/platform/services/HostNewFile.h"
#include "platform/VmDialogs.h"

namespace {

enum PasteResult { kPasted = 0, kNoSource = 1, kNoFolder = 2, kNameTaken = 3, kCopyFailed = 4 };

void advance(VmNoticeDelay* notice, qint64 done, qint64 total)
{
    if (!notice || !notice->meter())
        return;
    VmMeterModule* meter = notice->meter();
    meter->setValue(total > 0 ? int(done * meter->maximum() / total) : meter->maximum());
}

int paste(const QString& destination, const QFileInfo& source, VmNoticeDelay* notice, QString* target)
{
    if (!source.isFile())
        return kNoSource;
    if (!QFileInfo(destination).isDir())
        return kNoFolder;
    *target = QDir(destination).filePath(source.fileName());
    // Never overwrite, nor write through a link on the card: the user keeps
    // what is there and is told it failed.
    const HostNewFile::Result copied = HostNewFile::copy(
        source.absoluteFilePath(), *target, [notice](qint64 done, qint64 total) { advance(notice, done, total); });
    switch (copied) {
    case HostNewFile::Result::Made:
        return kPasted;
    case HostNewFile::Result::NameTaken:
        return kNameTaken;
    case HostNewFile::Result::Failed:
        break;
    }
    return kCopyFailed;
}

QJsonValue pointer(const void* p)
{
    return p ? QJsonValue(QStringLiteral("pointer")) : QJsonValue();
}

} // namespace

int MYSTUFF_FS_Opr::getPasteResult(const QString& destination, const QFileInfo& source, VmNoticeDelay* notice,
                                   int* count, QStringList& failed, int operation, int* pasted, int* skipped)
{
    HostJournal::call(QStringLiteral("service"), QStringLiteral("getPasteResult"),
                      QJsonArray{destination, source.filePath(), notice ? QJsonValue("notice") : QJsonValue(),
                                 count ? QJsonValue(*count) : QJsonValue(), QJsonArray::fromStringList(failed),
                                 operation, pointer(pasted), pointer(skipped)});
    QString target;
    // Only a copy is offered by the host's file manager: a move would delete
    // the file the player is playing.
    const int result = operation == kCopy ? paste(destination, source, notice, &target) : kCopyFailed;
    if (!target.isEmpty())
        HostJournal::write(QJsonObject{{"kind", "file"}, {"call", "copy"},
                                       {"args", QJsonArray{source.absoluteFilePath(), target}}, {"result", result}});
    if (result != kPasted)
        failed.append(source.fileName());
    if (pasted)
        *pasted = result == kPasted ? 1 : 0;
    if (skipped)
        *skipped = result == kPasted ? 0 : 1;
    return result;
}
