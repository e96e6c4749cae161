#include "bench/Mp3Copy.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <gst/gst.h>
#include <taglib/fileref.h>
#include <taglib/tpropertymap.h>

#include <cstdio>
#include <memory>

namespace {

struct GstObjectUnref {
    void operator()(gpointer object) const { gst_object_unref(object); }
};
using GstElementPtr = std::unique_ptr<GstElement, GstObjectUnref>;
using GstBusPtr = std::unique_ptr<GstBus, GstObjectUnref>;

void setLocation(GstElement* pipeline, const char* element, const QString& path)
{
    const GstElementPtr found(gst_bin_get_by_name(GST_BIN(pipeline), element));
    g_object_set(found.get(), "location", QFile::encodeName(path).constData(), nullptr);
}

/** What went wrong, as GStreamer says it; a minute without an end when there is no message. */
QString reasonOf(GstMessage* message)
{
    if (!message)
        return QStringLiteral("no end within a minute");
    GError* error = nullptr;
    gst_message_parse_error(message, &error, nullptr);
    const QString reason = QString::fromUtf8(error ? error->message : "unknown error");
    g_clear_error(&error);
    return reason;
}

} // namespace

bool Mp3Copy::copyFolder(const QString& from, const QString& to)
{
    if (!gst_is_initialized())
        gst_init(nullptr, nullptr);
    const QDir source(from);
    QDirIterator songs(from, {QStringLiteral("*.wav")}, QDir::Files, QDirIterator::Subdirectories);
    while (songs.hasNext()) {
        const QString wav = songs.next();
        const QString mp3 = QDir(to).filePath(source.relativeFilePath(wav)).chopped(4) + QStringLiteral(".mp3");
        if (!QDir().mkpath(QFileInfo(mp3).path()) || !encode(wav, mp3))
            return false;
    }
    return true;
}

bool Mp3Copy::encode(const QString& wav, const QString& mp3)
{
    return encodeSound(wav, mp3) && copyTags(wav, mp3);
}

// The WAV's tags are in an ID3 chunk, which GStreamer's WAV reader does not
// hand on: TagLib copies them, composer and all.
bool Mp3Copy::copyTags(const QString& wav, const QString& mp3)
{
    const TagLib::FileRef from(QFile::encodeName(wav).constData());
    TagLib::FileRef to(QFile::encodeName(mp3).constData());
    if (from.isNull() || to.isNull()) {
        std::fprintf(stderr, "Mp3Copy: cannot read the tags of %s or %s\n", qPrintable(wav), qPrintable(mp3));
        return false;
    }
    to.file()->setProperties(from.file()->properties());
    return to.save();
}

bool Mp3Copy::encodeSound(const QString& wav, const QString& mp3)
{
    GError* error = nullptr;
    const GstElementPtr pipeline(gst_parse_launch(
        "filesrc name=in ! wavparse ! audioconvert ! lamemp3enc bitrate=128 target=bitrate ! filesink name=out",
        &error));
    if (!pipeline) {
        std::fprintf(stderr, "Mp3Copy: %s\n", error ? error->message : "no pipeline");
        g_clear_error(&error);
        return false;
    }
    setLocation(pipeline.get(), "in", wav);
    setLocation(pipeline.get(), "out", mp3);
    gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);
    const GstBusPtr bus(gst_element_get_bus(pipeline.get()));
    GstMessage* message = gst_bus_timed_pop_filtered(bus.get(), 60 * GST_SECOND,
                                                     GstMessageType(GST_MESSAGE_EOS | GST_MESSAGE_ERROR));
    const bool ended = message && GST_MESSAGE_TYPE(message) == GST_MESSAGE_EOS;
    if (!ended)
        std::fprintf(stderr, "Mp3Copy: %s could not be encoded: %s\n", qPrintable(wav), qPrintable(reasonOf(message)));
    if (message)
        gst_message_unref(message);
    gst_element_set_state(pipeline.get(), GST_STATE_NULL);
    return ended;
}
