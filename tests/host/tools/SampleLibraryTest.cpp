#include "host/tools/samplegen/SampleLibraryWriter.h"
#include "host/tools/samplegen/WavSynth.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <tuple>

#include <taglib/tpropertymap.h>
#include <taglib/wavfile.h>

namespace {

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

quint32 le32(const QByteArray& bytes, int offset) { return qFromLittleEndian<quint32>(bytes.constData() + offset); }

QString toQString(const TagLib::String& text) { return QString::fromStdString(text.to8Bit(true)); }

QStringList filesUnder(const QString& folder)
{
    QStringList files;
    QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(it.next());
    files.sort();
    return files;
}

}  // namespace

// The wave header's fields are read back by TagLib in the song's test; that the
// melody is the same from run to run, by the second run's files left as they are.
TEST(WavSynthTest, Melody_IsAudibleAndFaded)
{
    const WavSynth synth(11025);
    const QByteArray pcm = synth.melody(42, 2);
    ASSERT_EQ(pcm.size(), 2 * 11025 * 2);
    int peak = 0;
    for (int i = 0; i < pcm.size(); i += 2)
        peak = std::max(peak, std::abs(int(qFromLittleEndian<qint16>(pcm.constData() + i))));
    EXPECT_GT(peak, 8000);   // clearly audible
    EXPECT_LT(peak, 32767);  // never clipped
    EXPECT_EQ(qFromLittleEndian<qint16>(pcm.constData()), 0);                  // faded in
    EXPECT_EQ(qFromLittleEndian<qint16>(pcm.constData() + pcm.size() - 2), 0); // faded out
    EXPECT_NE(synth.melody(43, 2), pcm) << "each song its own tune";
}

class SampleLibraryTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        s_folder = std::make_unique<QTemporaryDir>();
        ASSERT_TRUE(s_folder->isValid());
        SampleLibraryWriter writer(s_folder->path());
        ASSERT_TRUE(writer.write()) << qPrintable(writer.errorString());
    }
    static void TearDownTestSuite() { s_folder.reset(); }

    static QString path(const QString& relative) { return QDir(s_folder->path()).filePath(relative); }

    static std::unique_ptr<QTemporaryDir> s_folder;
};

std::unique_ptr<QTemporaryDir> SampleLibraryTest::s_folder;

TEST_F(SampleLibraryTest, Song_ReadsBackTagsAndDuration)
{
    const QString file = path(QStringLiteral("Music/Árós Quartet/Kvöldljóð/02 Белая ночь.wav"));
    const QByteArray bytes = readAll(file);
    ASSERT_FALSE(bytes.isEmpty());
    EXPECT_EQ(le32(bytes, 4), quint32(bytes.size() - 8)) << "the RIFF size counts the tag's chunk";

    TagLib::RIFF::WAV::File wav(QFile::encodeName(file).constData());
    ASSERT_TRUE(wav.isValid());
    ASSERT_TRUE(wav.hasID3v2Tag());
    const TagLib::Tag* tag = wav.tag();
    const TagLib::PropertyMap properties = wav.properties();
    EXPECT_EQ(QStringList({toQString(tag->title()), toQString(tag->artist()), toQString(tag->album()),
                           toQString(tag->genre()), toQString(properties["COMPOSER"].toString()),
                           toQString(properties["DATE"].toString())}),
              QStringList({"Белая ночь", "Árós Quartet", "Kvöldljóð", "Classical", "Sigrún Hallsdóttir", "1998-12-01"}));
    EXPECT_EQ(tag->track(), 2u);
    const TagLib::RIFF::WAV::Properties& sound = *wav.audioProperties();
    EXPECT_EQ(std::tuple(sound.lengthInMilliseconds(), sound.sampleRate(), sound.channels(), sound.bitsPerSample(),
                         sound.format()),
              std::tuple(8000, 11025, 1, 16, 1));  // PCM
}

TEST_F(SampleLibraryTest, UntaggedRecordings_HaveSoundButNoTitle)
{
    const QStringList files = filesUnder(path(QStringLiteral("Music/Unsorted")));
    ASSERT_EQ(files.size(), 3);
    for (const QString& file : files) {
        TagLib::RIFF::WAV::File wav(QFile::encodeName(file).constData());
        ASSERT_TRUE(wav.isValid()) << qPrintable(file);
        EXPECT_FALSE(wav.hasID3v2Tag() || wav.hasInfoTag()) << qPrintable(file);
        EXPECT_GE(wav.audioProperties()->lengthInMilliseconds(), 4000) << qPrintable(file);
    }
}

TEST_F(SampleLibraryTest, PlayList_EntriesResolveToSongs)
{
    const QString listPath = path(QStringLiteral("Playlists/Evening.m3u"));
    const QStringList lines = QString::fromUtf8(readAll(listPath)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.mid(0, 2), (QStringList{"#EXTM3U", "#EXTINF:7,Aurora Lane - Harbour Wind"}));
    const QStringList entries = lines.filter(QRegularExpression("^[^#]"));
    EXPECT_EQ(entries.size(), 6);
    for (const QString& entry : entries)
        EXPECT_TRUE(QFileInfo::exists(QFileInfo(listPath).dir().filePath(entry))) << qPrintable(entry);
}

TEST_F(SampleLibraryTest, SecondRun_KeepsCompleteFilesAndRepairsADamagedOne)
{
    // Every file the first run wrote is found whole: none is written again.
    ASSERT_EQ(filesUnder(s_folder->path()).size(), 33);
    SampleLibraryWriter again(s_folder->path());
    ASSERT_TRUE(again.write());
    EXPECT_EQ(again.filesWritten(), 0);
    EXPECT_EQ(again.filesUnchanged(), 33);

    const QString damaged = path(QStringLiteral("Music/Neon Parade/Afterglow/02 月の光.wav"));
    const QByteArray original = readAll(damaged);
    ASSERT_TRUE(QFile::resize(damaged, original.size() / 2));
    SampleLibraryWriter repair(s_folder->path());
    ASSERT_TRUE(repair.write());
    EXPECT_EQ(repair.filesWritten(), 1);
    EXPECT_EQ(readAll(damaged), original);
}
