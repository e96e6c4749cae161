#include <gtest/gtest.h>

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "host/platform/services/HostBookmarkEditor.h"
#include "host/platform/toolkit/HostDetailsDialog.h"
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
}

// The languages there are, and German in the menus, are the application's and the menus' tests.
TEST_F(HostTranslationsTest, UnknownLanguagesKeepEnglish_EnglishRemovesATranslation)
{
    ASSERT_TRUE(HostTranslations::use(QStringLiteral("de")));
    EXPECT_EQ(MP_tr("TXT_RID_SOFTKEY_BACK", "Back"), QStringLiteral("Zur\u00fcck"));
    EXPECT_EQ(MP_tr("TXT_RID_NOT_TRANSLATED", "Not translated"), QStringLiteral("Not translated"));

    EXPECT_FALSE(HostTranslations::use(QStringLiteral("xx")));
    EXPECT_EQ(MP_tr("TXT_RID_SOFTKEY_BACK", "Back"), QStringLiteral("Back"));
    ASSERT_TRUE(HostTranslations::use(QStringLiteral("de")));
    EXPECT_TRUE(HostTranslations::use(QStringLiteral("en")));
    EXPECT_EQ(MP_tr("TXT_RID_SOFTKEY_BACK", "Back"), QStringLiteral("Back"));
}

TEST_F(HostTranslationsTest, TheHostsOwnWindowsSpeakThePlayersLanguage)
{
    ASSERT_TRUE(HostTranslations::use(QStringLiteral("de")));
    HostBookmarkEditor editor(HostBookmark{QString(), QStringLiteral("Radio"), QStringLiteral("http://r.example")});
    const auto* label = qobject_cast<QLabel*>(editor.findChild<QFormLayout*>()->labelForField(&editor.addressField()));
    ASSERT_TRUE(label);
    EXPECT_EQ(QStringList({editor.windowTitle(), label->text(),
                           editor.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->text()}),
              QStringList({"Lesezeichen bearbeiten", "Adresse", "Abbrechen"}));
    const HostDetailsDialog details(QStringLiteral("/nonexistent/song.mp3"), nullptr);
    EXPECT_TRUE(details.text().startsWith(QStringLiteral("song.mp3\n0 Bytes\n"))) << details.text().toStdString();
}

} // namespace
