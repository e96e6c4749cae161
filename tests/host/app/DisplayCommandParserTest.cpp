#include "host/app/script/DisplayCommandParser.h"

#include <gtest/gtest.h>

namespace {

using Kind = DisplayCommand::Kind;

TEST(DisplayCommandParserTest, Commands_ReadWithTheirArguments)
{
    struct Case {
        QStringList words;
        Kind kind;
        int value;
    };
    const Case cases[] = {
        {{"play"}, Kind::Play, 0},           {{"shiftFinished"}, Kind::ShiftFinished, 0},
        {{"shift", "-5000"}, Kind::Shift, -5000}, {{"mute", "true"}, Kind::Mute, 1},
        {{"mute", "false"}, Kind::Mute, 0},  {{"volume", "255"}, Kind::Volume, 255},
    };
    for (const Case& c : cases) {
        DisplayCommand command;
        QString error;
        ASSERT_TRUE(DisplayCommandParser::parse(c.words, &command, &error)) << qPrintable(c.words.join(' '));
        EXPECT_EQ(command.kind, c.kind) << qPrintable(c.words.join(' '));
        EXPECT_EQ(command.value, c.value) << qPrintable(c.words.join(' '));
    }
}

TEST(DisplayCommandParserTest, BadWords_AreRefusedWithAReason)
{
    const std::pair<QStringList, QString> cases[] = {
        {{"rewind"}, "unknown display command \"rewind\""},
        {{"volume", "256"}, "volume expects a level from 0 to 255, not \"256\""},
        {{"volume", "-1"}, "volume expects a level from 0 to 255, not \"-1\""},
        {{"mute", "yes"}, "mute expects true or false, not \"yes\""},
        {{"shift", "2147483648"}, "shift expects a whole number of milliseconds, not \"2147483648\""},
        {{"shift"}, "shift expects one argument"},
        {{"play", "now"}, "play takes no argument"},
    };
    for (const auto& [words, reason] : cases) {
        DisplayCommand command;
        QString error;
        EXPECT_FALSE(DisplayCommandParser::parse(words, &command, &error));
        EXPECT_EQ(error, reason);
    }
    QString error;
    DisplayCommand command;
    EXPECT_FALSE(DisplayCommandParser::parse({}, &command, &error));
    EXPECT_TRUE(error.startsWith("expects a command: play, pause"));
}

} // namespace
