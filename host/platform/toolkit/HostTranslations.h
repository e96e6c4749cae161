#pragma once
// The language of the texts the player shows. Translations are Qt translation
// files keyed by the texts' resource ids (translations/mediaplayer_LANG.ts),
// built into the platform library; a text a translation lacks stays English.

#include <QString>
#include <QStringList>

class HostTranslations {
public:
    /** The language a locale name such as "de_DE.UTF-8" asks for ("de"); an
     *  empty string for "C", "POSIX" and an empty name. */
    static QString languageOfLocale(const QString& locale);
    /** The languages with a built-in translation ("de", ...), English not counted. */
    static QStringList available();
    /**
     * Makes @p language the language of every text looked up from now on,
     * replacing an earlier choice. English and an empty @p language remove the
     * translation. Returns false (and keeps English) when there is no
     * translation for @p language.
     */
    static bool use(const QString& language);
};
