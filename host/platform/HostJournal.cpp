#include "host/platform/HostJournal.h"

#include <QJsonDocument>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// One process-wide journal. The file is looked up from MP_JOURNAL at every
// write so that a test (or the application's --journal) can point it
// elsewhere at any time.
struct JournalState {
    std::string path;
    FILE* file = nullptr;
    bool capturing = false;
    QList<QJsonObject> kept;

    ~JournalState()
    {
        if (file)
            std::fclose(file);
    }

    FILE* fileForWriting()
    {
        const char* wanted = std::getenv("MP_JOURNAL");
        if (!wanted || !*wanted) {
            closeFile();
            return nullptr;
        }
        if (file && path == wanted)
            return file;
        if (path == wanted)
            return nullptr;  // it could not be opened: said once, not at every line
        closeFile();
        path = wanted;
        file = std::fopen(wanted, "a");
        if (!file)
            std::fprintf(stderr, "journal: cannot open %s for writing\n", wanted);
        return file;
    }

    void closeFile()
    {
        if (file)
            std::fclose(file);
        file = nullptr;
        path.clear();
    }
};

JournalState& state()
{
    static JournalState journal;
    return journal;
}

} // namespace

void HostJournal::write(const QJsonObject& line)
{
    JournalState& journal = state();
    if (journal.capturing)
        journal.kept.append(line);
    if (FILE* file = journal.fileForWriting()) {
        const QByteArray text = QJsonDocument(line).toJson(QJsonDocument::Compact);
        std::fwrite(text.constData(), 1, size_t(text.size()), file);
        std::fputc('\n', file);
        // Flushed line by line: a crash must not lose what already happened.
        std::fflush(file);
    }
}

void HostJournal::call(const QString& kind, const QString& call, const QJsonArray& args)
{
    write(QJsonObject{{"kind", kind}, {"call", call}, {"args", args}});
}

void HostJournal::qcop(const QByteArray& channel, const QByteArray& message, const QByteArray& data)
{
    write(QJsonObject{{"kind", "qcop"},
                      {"channel", QString::fromUtf8(channel)},
                      {"message", QString::fromUtf8(message)},
                      {"data", QString::fromLatin1(data.toHex())}});
}

void HostJournal::settings(int app, const QString& group, const QString& key, const QJsonValue& value)
{
    write(QJsonObject{{"kind", "settings"}, {"app", app}, {"group", group}, {"key", key}, {"value", value}});
}

void HostJournal::dialog(const QString& className, int type, const QString& title, const QString& text,
                         int answer, const QString& icon)
{
    QJsonObject line{{"kind", "dialog"},
                     {"class", className},
                     {"type", type},
                     {"title", title},
                     {"text", text},
                     {"answer", answer}};
    if (!icon.isEmpty())
        line.insert(QStringLiteral("icon"), icon);
    write(line);
}

void HostJournal::startCapture()
{
    state().capturing = true;
    state().kept.clear();
}

QList<QJsonObject> HostJournal::captured()
{
    return state().kept;
}

void HostJournal::stopCapture()
{
    state().capturing = false;
    state().kept.clear();
}

void HostJournal::close()
{
    state().closeFile();
}
