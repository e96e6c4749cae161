#include "host/platform/toolkit/HostTranslations.h"

#include <QCoreApplication>
#include <QDir>
#include <QTranslator>

#include <memory>

namespace {

const QString kResourceFolder = QStringLiteral(":/translations");
const QString kFilePrefix = QStringLiteral("mediaplayer_");

std::unique_ptr<QTranslator>& installed()
{
    static std::unique_ptr<QTranslator> translator;
    return translator;
}

void removeInstalled()
{
    if (!installed())
        return;
    QCoreApplication::removeTranslator(installed().get());
    installed().reset();
}

} // namespace

QString HostTranslations::languageOfLocale(const QString& locale)
{
    if (locale.isEmpty() || locale == QLatin1String("C") || locale.startsWith(QLatin1String("C."))
        || locale == QLatin1String("POSIX"))
        return QString();
    // "de_DE.UTF-8@euro": the language is what comes before the territory.
    qsizetype end = locale.size();
    for (const QChar separator : {QLatin1Char('_'), QLatin1Char('.'), QLatin1Char('@')}) {
        const qsizetype at = locale.indexOf(separator);
        if (at >= 0 && at < end)
            end = at;
    }
    return locale.left(end).toLower();
}

QStringList HostTranslations::available()
{
    QStringList languages;
    const QStringList files = QDir(kResourceFolder).entryList({kFilePrefix + QStringLiteral("*.qm")}, QDir::Files,
                                                              QDir::Name);
    for (const QString& file : files)
        languages.append(file.mid(kFilePrefix.size(), file.size() - kFilePrefix.size() - 3));
    return languages;
}

bool HostTranslations::use(const QString& language)
{
    removeInstalled();
    if (language.isEmpty() || language == QLatin1String("en"))
        return true;
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(kFilePrefix + language, kResourceFolder))
        return false;
    QCoreApplication::installTranslator(translator.get());
    installed() = std::move(translator);
    return true;
}
