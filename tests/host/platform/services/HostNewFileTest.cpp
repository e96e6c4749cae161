// A copy never replaces what holds its target's name, even when another
// program makes the target while the bytes are being copied.

#include "host/platform/services/HostNewFile.h"

#include <QDir>
#include <QFile>

#include "tests/support/TestEnvironment.h"

namespace {

class HostNewFileTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        ASSERT_TRUE(QDir().mkpath(dataPath("card")));
        // Three pieces, so that the copy reports progress in between.
        writeDataFile("song.mp3", QByteArray(150 * 1024, 'x'));
    }

    static QByteArray read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
    }

    QStringList cardEntries() const
    {
        return QDir(dataPath("card")).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
};

} // namespace

TEST_F(HostNewFileTest, AFreeNameGetsTheWholeFile_ATargetMadeDuringTheCopyIsKept)
{
    const QString free = dataPath("card/song.mp3");
    EXPECT_EQ(HostNewFile::copy(dataPath("song.mp3"), free, {}), HostNewFile::Result::Made);
    EXPECT_EQ(read(free), QByteArray(150 * 1024, 'x'));
    EXPECT_EQ(QFile::permissions(free) & (QFile::ReadOther | QFile::ReadGroup), QFile::ReadOther | QFile::ReadGroup)
        << "an ordinary file";
    EXPECT_EQ(HostNewFile::copy(dataPath("missing.mp3"), dataPath("card/other.mp3"), {}),
              HostNewFile::Result::Failed);
    EXPECT_EQ(cardEntries(), QStringList{"song.mp3"});

    const QString target = dataPath("card/taken.mp3");
    QList<qint64> reported;
    const HostNewFile::Result result =
        HostNewFile::copy(dataPath("song.mp3"), target, [&](qint64 done, qint64 total) {
            if (reported.isEmpty())
                writeDataFile("card/taken.mp3", "another program's file");
            reported << done << total;
        });
    EXPECT_EQ(result, HostNewFile::Result::NameTaken);
    EXPECT_EQ(read(target), QByteArray("another program's file"));
    EXPECT_EQ(cardEntries(), QStringList({"song.mp3", "taken.mp3"})) << "the copy's own bytes are gone";
    EXPECT_EQ(reported, QList<qint64>({65536, 153600, 131072, 153600, 153600, 153600}));
}
