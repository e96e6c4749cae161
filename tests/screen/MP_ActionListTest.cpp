// The registry of dynamic menu actions and the state an action keeps.

#include <QStringList>

#include <gtest/gtest.h>

#include "screen/MP_ActionList.h"
#include "screen/MP_SlotAction.h"

namespace {

class CountingAction : public MP_SlotAction {
public:
    CountingAction(int index, const QString& text, QStringList* log) : MP_SlotAction(index, text), m_log(log) {}
    void onUpdate() override { *m_log << QStringLiteral("update %1 %2").arg(getIndex()).arg(getText()); }
    void onExecute() override {}

private:
    QStringList* m_log;
};

} // namespace

TEST(MP_ActionList, KeysByItemIdAndNeverOwns)
{
    QStringList log;
    CountingAction handset(1017, "Handset", &log);
    CountingAction first(1016, "First", &log);
    CountingAction second(1016, "Second", &log);
    MP_ActionList list;

    EXPECT_EQ(list.getAction(1016), nullptr);
    list.onUpdate();
    EXPECT_TRUE(log.isEmpty()) << "a lookup adds no entry";

    list.addAction(&handset);
    list.addAction(&first);
    list.addAction(&second);
    list.addAction(nullptr);
    EXPECT_EQ(list.getAction(1016), static_cast<MP_ActionBase*>(&second)) << "the second replaces the first";
    list.onUpdate();
    EXPECT_EQ(log, QStringList({"update 1016 Second", "update 1017 Handset"})) << "ascending ids, replaced one gone";

    // Removal goes by id, whichever action is registered there.
    list.removeAction(&first);
    EXPECT_EQ(list.getAction(1016), nullptr);
    EXPECT_EQ(list.getAction(1017), static_cast<MP_ActionBase*>(&handset));
    list.removeAction(&first);
    list.removeAction(nullptr);
    EXPECT_EQ(list.getAction(1017), static_cast<MP_ActionBase*>(&handset));
}

TEST(MP_ActionBase, FlagsAndAssignment)
{
    QStringList log;
    CountingAction source(1016, "Use Bluetooth", &log);
    EXPECT_FALSE(source.getHided());
    source.setHided(true);
    source.setHided(true);
    EXPECT_TRUE(source.getHided());
    source.setDisabled(true);
    source.setChecked(true);

    CountingAction target(1017, "Use Handset", &log);
    // Through the base, as the actions are Qt objects that cannot be copied whole.
    MP_ActionBase& base = target;
    base = source;
    EXPECT_EQ(target.getIndex(), 1016);
    EXPECT_EQ(target.getText(), QStringLiteral("Use Bluetooth"));
    EXPECT_TRUE(target.getHided());
    EXPECT_TRUE(target.getDisabled());
    EXPECT_TRUE(target.getChecked());

    target.setChecked(false);
    const MP_ActionBase& same = base;   // the object assigned to itself, as through a reference
    base = same;
    EXPECT_EQ(target.getIndex(), 1016);
    EXPECT_FALSE(target.getChecked()) << "self-assignment changes nothing";
}
