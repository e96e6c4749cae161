#include <gtest/gtest.h>

#include "host/platform/toolkit/HostTranslations.h"
#include "platform/TextResources.h"

namespace {

class HostTranslationsTest : public ::testing::Test {
protected:
    void TearDown() override { HostTranslations::use(QString()); }
};

TEST(HostTranslationsLocale, TakesTheLanguageBeforeTerritoryCodesetAndModifier)
{
    EXPECT_EQ(HostTranslations::languageOfLocale(QStringLiteral("de_DE.UTF-8")), QStringLiteral("de"));
    EXPECT_EQ(HostTranslations::languageOfLocale(QStringLiteral("de@euro")), QStringLiteral("de"));
    EXPECT_EQ(HostTranslations::languageOfLocale(QStringLiteral("FR.utf8")), QStringLiteral("fr"));
    EXPECT_EQ(HostTranslations::languageOfLocale(QStringLiteral("C.UTF-8")), QString());
    EXPECT_EQ(HostTranslations::languageOfLocale(QStringLiteral("POSIX")), QString());
    EXPECT_EQ(HostTranslations::languageOfLocale(QString()), QString());
}

TEST_F(HostTranslationsTest, GermanIsBuiltIn_TranslatedTextsByIdAndEnglishForTheRest)
{
    EXPECT_EQ(HostTranslations::available(), QStringList{QStringLiteral("de")});
    EXPECT_EQ(MP_tr("TXT_RID_SOFTKEY_BACK", "Back"), QStringLiteral("Back"));
    ASSERT_TRUE(HostTranslations::use(QStringLiteral("de")));
    EXPECT_EQ(MP_tr("TXT_RID_SOFTKEY_BACK", "Back"), QStringLiteral("Zur\u00fcck"));
    EXPECT_EQ(MP_tr("TXT_RID_OPTION_MEMORY_CARD", "Memory Card"), QStringLiteral("Speicherkarte"));
    EXPECT_EQ(MP_tr("TXT_RID_NOT_TRANSLATED", "Not translated"), QStringLiteral("Not translated"));
}

TEST_F(HostTranslationsTest, AnUnknownLanguageKeepsEnglishAndEnglishRemovesATranslation)
{
    ASSERT_TRUE(HostTranslations::use(QStringLiteral("de")));
    EXPECT_FALSE(HostTranslations::use(QStringLiteral("xx")));
    EXPECT_EQ(MP_tr("TXT_RID_SOFTKEY_OPTIONS", "Options"), QStringLiteral("Options"));
    ASSERT_TRUE(HostTranslations::use(QStringLiteral("de")));
    EXPECT_TRUE(HostTranslations::use(QStringLiteral("en")));
    EXPECT_EQ(MP_tr("TXT_RID_SOFTKEY_OPTIONS", "Options"), QStringLiteral("Options"));
}

} // namespace
