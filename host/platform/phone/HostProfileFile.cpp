#include "host/platform/phone/HostProfileFile.h"

#include <QFile>

#include <algorithm>

namespace {

const QString kFlexBitSection = QStringLiteral("FlexBits");

// Where a comment starts: '#' or ';' at the start of the line or after a space,
// so that a profile value may still hold either character.
int commentStart(const QString& line)
{
    for (int i = 0; i < line.size(); ++i) {
        const QChar c = line.at(i);
        if ((c == QLatin1Char('#') || c == QLatin1Char(';')) && (i == 0 || line.at(i - 1).isSpace()))
            return i;
    }
    return -1;
}

bool parseSwitch(const QString& word, bool* on)
{
    static const QStringList ons = {QStringLiteral("on"), QStringLiteral("1"), QStringLiteral("true")};
    static const QStringList offs = {QStringLiteral("off"), QStringLiteral("0"), QStringLiteral("false")};
    if (ons.contains(word, Qt::CaseInsensitive))
        *on = true;
    else if (offs.contains(word, Qt::CaseInsensitive))
        *on = false;
    else
        return false;
    return true;
}

// Reads one line into @p content; a reason when it holds nothing usable.
QString parseLine(const QString& raw, QString& section, HostProfileFile::Content& content)
{
    if (raw.size() > HostProfileFile::kMaxLineLength)
        return QStringLiteral("longer than %1 characters").arg(HostProfileFile::kMaxLineLength);
    const int comment = commentStart(raw);
    const QString line = (comment < 0 ? raw : raw.left(comment)).trimmed();
    if (line.isEmpty())
        return QString();
    if (line.startsWith(QLatin1Char('['))) {
        if (!line.endsWith(QLatin1Char(']')) || line.size() < 3)
            return QStringLiteral("not a section name");
        section = line.mid(1, line.size() - 2).trimmed();
        return QString();
    }
    const int equals = line.indexOf(QLatin1Char('='));
    if (equals <= 0)
        return QStringLiteral("not key = value");
    const QString key = line.left(equals).trimmed();
    const QString value = line.mid(equals + 1).trimmed();
    if (section.isEmpty())
        return QStringLiteral("a value before any section");
    if (section != kFlexBitSection) {
        content.items.insert(section + QLatin1Char('/') + key, value);
        return QString();
    }
    bool isNumber = false;
    const uint bit = key.toUInt(&isNumber);
    bool on = false;
    if (!isNumber || bit > 0xFFFF)
        return QStringLiteral("not a feature bit number");
    if (!parseSwitch(value, &on))
        return QStringLiteral("not on or off");
    content.flexBits.insert(int(bit), on);
    return QString();
}

} // namespace

HostProfileFile::Content HostProfileFile::parse(const QByteArray& text)
{
    Content content;
    const QString whole = QString::fromUtf8(text.left(int(kMaxBytes)));
    const QStringList lines = whole.split(QLatin1Char('\n'));
    QString section;
    for (int i = 0; i < lines.size(); ++i) {
        QString line = lines.at(i);
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        const QString why = parseLine(line, section, content);
        if (!why.isEmpty())
            content.warnings.append(QStringLiteral("line %1: %2").arg(i + 1).arg(why));
    }
    return content;
}

HostProfileFile::Content HostProfileFile::read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Content();
    return parse(file.read(kMaxBytes));
}

QByteArray HostProfileFile::defaultText(const Content& defaults)
{
    QByteArray text = "# The host phone's profile. '#' or ';' starts a comment.\n"
                      "# [FlexBits]: feature bits by number, on or off.\n"
                      "#   149 the blog service, 492 bookmarks left out of stream menus,\n"
                      "#   512 a sound must pass the ringtone check before it is offered.\n"
                      "# [Keys] RepeatInterval: milliseconds between repeats of a held key.\n"
                      "# Any other section: profile items as text.\n"
                      "[FlexBits]\n";
    QList<int> bits = defaults.flexBits.keys();
    std::sort(bits.begin(), bits.end());
    for (int bit : bits)
        text += QByteArray::number(bit) + " = " + (defaults.flexBits.value(bit) ? "on" : "off") + '\n';
    QStringList items = defaults.items.keys();
    items.sort();
    QString section;
    for (const QString& item : items) {
        const int slash = item.indexOf(QLatin1Char('/'));
        if (item.left(slash) != section) {
            section = item.left(slash);
            text += '[' + section.toUtf8() + "]\n";
        }
        text += item.mid(slash + 1).toUtf8() + " = " + defaults.items.value(item).toUtf8() + '\n';
    }
    return text;
}
