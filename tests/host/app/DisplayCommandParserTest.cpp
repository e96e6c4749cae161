#include "host/app/script/DisplayCommandParser.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using Kind = DisplayCommand::Kind;

QString shown(Kind kind, int value) { return QStringLiteral("kind %1 value %2").arg(int(kind)).arg(value); }

// What parse() makes of @p words: the command's kind and value, or why it refused them.
QString parsed(const QStringList& words)
{
    DisplayCommand command;
    QString error;
    if (!DisplayCommandParser::parse(words, &command, &error))
        return error;
    return shown(command.kind, command.value);
}

TEST(DisplayCommandParserTest, CommandsAreReadWithTheirArguments_BadWordsRefusedWithAReason)
{
    const std::pair<QStringList, QString> cases[] = {
        {{"play"}, shown(Kind::Play, 0)},            {{"shift", "-5000"}, shown(Kind::Shift, -5000)},
        {{"mute", "true"}, shown(Kind::Mute, 1)},    {{"mute", "false"}, shown(Kind::Mute, 0)},
        {{"volume", "255"}, shown(Kind::Volume, 255)},
        {{"rewind"}, "unknown display command \"rewind\""},
        {{"volume", "256"}, "volume expects a level from 0 to 255, not \"256\""},
        {{"volume", "-1"}, "volume expects a level from 0 to 255, not \"-1\""},
        {{"mute", "yes"}, "mute expects true or false, not \"yes\""},
        {{"shift", "2147483648"}, "shift expects a whole number of milliseconds, not \"2147483648\""},
        {{"shift"}, "shift expects one argument"},
        {{"play", "now"}, "play takes no argument"},
    };
    for (const auto& [words, expected] : cases)
        EXPECT_EQ(parsed(words), expected) << qPrintable(words.join(' '));
    EXPECT_TRUE(parsed({}).startsWith("expects a command: play, pause"));
}

} // namespace
