#include "platform/VmOptionsMenu.h"

#include <QMenu>
#include <QSignalSpy>
#include <QSpinBox>

#include <tuple>

#include "platform/VmKbMainWidget.h"
#include "platform/VmSoftKey.h"
#include "tests/support/SampleMenuParser.h"
#include "tests/support/TestEnvironment.h"

namespace {

class VmOptionsMenuTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        menu = new VmOptionsMenu(QRect(0, 0, 240, 288), &screen);
        menu->setMenu(&parser, QStringLiteral("sample"));
    }

    VmKbMainWidget screen;
    SampleMenuParser parser;
    VmOptionsMenu* menu = nullptr; // owned by the screen
    QSpinBox counter;             // stepUp() counts the commands run
};

TEST_F(VmOptionsMenuTest, SetMenu_BuildsTheTreeInMenuOrderAndDropsItemsWithoutAParent)
{
    // A submenu's items follow its head, in the order the parser listed them.
    EXPECT_EQ(menu->itemIds(), (QList<int>{10, 20, 21, 22, 30}));
    EXPECT_EQ(QList<int>({menu->itemParent(22), menu->itemParent(30), menu->itemParent(40)}),
              QList<int>({20, 0, -1}));
    EXPECT_EQ(menu->qmenu()->actions().size(), 3);

    EXPECT_TRUE(menu->changeItem(22, "Card"));
    EXPECT_EQ(menu->itemText(22), "Card");
    EXPECT_FALSE(menu->changeItem(40, "Orphan"));

    // A second menu replaces the first; an unknown name leaves it empty.
    menu->setMenu(&parser, QStringLiteral("Sample"));
    EXPECT_EQ(std::tuple(menu->itemIds().size(), menu->qmenu()->actions().size(), menu->hasItem(10)),
              std::tuple(0, 0, false));
}

TEST_F(VmOptionsMenuTest, ChooseItem_RunsTheConnectedSlotOnlyForReachableCommands)
{
    ASSERT_TRUE(menu->connectItem(10, &counter, SLOT(stepUp())));
    ASSERT_TRUE(menu->connectItem(21, &counter, SLOT(stepUp())));
    ASSERT_TRUE(menu->connectItem(30, &counter, SLOT(stepUp())));
    EXPECT_FALSE(menu->connectItem(99, &counter, SLOT(stepUp())));

    EXPECT_TRUE(menu->chooseItem(10));
    EXPECT_TRUE(menu->chooseItem(21));
    EXPECT_EQ(counter.value(), 2);

    // Connecting again replaces the command rather than adding a second one.
    ASSERT_TRUE(menu->connectItem(10, &counter, SLOT(stepDown())));
    EXPECT_TRUE(menu->chooseItem(10));
    EXPECT_EQ(counter.value(), 1);

    menu->setItemVisible(30, false);
    menu->setItemEnabled(10, false);
    // Hidden, disabled, a submenu head (it only opens its submenu), unknown; then under a hidden head.
    QList<bool> chosen{menu->chooseItem(30), menu->chooseItem(10), menu->chooseItem(20), menu->chooseItem(40)};
    menu->setItemVisible(20, false);
    chosen << menu->chooseItem(21);
    EXPECT_EQ(chosen, QList<bool>(5, false));
    EXPECT_EQ(counter.value(), 1);
}

TEST_F(VmOptionsMenuTest, SoftKey_PopsTheAttachedMenuUpOrReportsTheClick_KeepsTheHigherPriorityText)
{
    VmSoftKey* keys = screen.getSoftKey(true);
    ASSERT_EQ(screen.getSoftKey(false), keys);
    keys->setOptMenu(0, menu);
    QSignalSpy shown(menu, &VmOptionsMenu::aboutToShow);
    QSignalSpy hidden(menu, &VmOptionsMenu::aboutToHide);
    QSignalSpy clicked(keys, &VmSoftKey::clicked);
    QSignalSpy right(keys, &VmSoftKey::rightClicked);

    keys->click(0);
    EXPECT_EQ(shown.count(), 1) << "the owner hears of the opening once";
    EXPECT_TRUE(menu->qmenu()->isVisible());
    ASSERT_TRUE(menu->connectItem(30, &counter, SLOT(stepUp())));
    EXPECT_TRUE(menu->chooseItem(30));
    EXPECT_EQ(hidden.count(), 1) << "choosing closes the menu";
    EXPECT_FALSE(menu->qmenu()->isVisible());

    keys->click(1);
    // Clicks, the key clicked, right-key clicks, menus shown.
    EXPECT_EQ(QList<qsizetype>({clicked.count(), clicked.at(0).at(0).toInt(), right.count(), shown.count()}),
              QList<qsizetype>({1, 1, 1, 1}));

    // A higher priority text stays until it is cleared.
    keys->setText(1, "Cancel", 2);
    keys->setText(1, "Back", 0);
    EXPECT_EQ(keys->text(1), "Cancel");
    keys->setText(1, QString(), 0);
    keys->setText(1, "Back", 0);
    EXPECT_EQ(keys->text(1), "Back");
}

} // namespace
