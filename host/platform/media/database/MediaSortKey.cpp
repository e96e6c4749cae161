#include "host/platform/media/database/MediaSortKey.h"

QByteArray MediaSortKey::of(const QString& text)
{
    const QString decomposed = text.normalized(QString::NormalizationForm_KD);
    QString folded;
    folded.reserve(decomposed.size());
    for (const QChar c : decomposed) {
        switch (c.category()) {
        case QChar::Mark_NonSpacing:
        case QChar::Mark_SpacingCombining:
        case QChar::Mark_Enclosing:
            break;
        default:
            folded.append(c);
        }
    }
    return folded.toCaseFolded().toUtf8();
}
