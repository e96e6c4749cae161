#pragma once
// Makes a new file under a name that must be free, never replacing what
// holds it. The bytes go to a temporary file beside the target, which takes
// the target's name only if nothing holds it by then, in one step. A name
// held by anything (a file, a folder, a symbolic link, even one that points
// nowhere) counts as taken, so nothing is ever written through a link to a
// place outside the target's folder.

#include <QByteArray>
#include <QString>

#include <functional>

class HostNewFile {
public:
    enum class Result { Made, NameTaken, Failed };
    /** Told the bytes copied so far and the source's size, after each piece. */
    using Progress = std::function<void(qint64 done, qint64 total)>;

    /** Copies the file @p source to @p target, calling @p progress (may be empty) as it
     *  goes. NameTaken when something holds @p target's name, before the copy or when it
     *  ends (another program made it meanwhile); Failed when reading or writing failed.
     *  Nothing of the copy is left behind unless it returns Made. */
    static Result copy(const QString& source, const QString& target, const Progress& progress);
    /** Makes @p target holding @p bytes; the results as for copy(). */
    static Result write(const QByteArray& bytes, const QString& target);

private:
    /** Whether anything holds @p path's name. */
    static bool isNameTaken(const QString& path);
    /** Gives @p temporary the name @p target unless something holds it already. */
    static Result claimName(const QString& temporary, const QString& target);
};
