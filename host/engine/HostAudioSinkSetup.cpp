#include "host/engine/HostAudioSinkSetup.h"

#include <gst/gst.h>

#include "platform/TraceLog.h"

MP_DEFINE_TRACE(trace, "HostAudioSinkSetup")

namespace {

// Audio sinks are the elements with the base audio sink's "slave-method"
// property; Qt's output bin holds one (pulsesink, alsasink, or what
// autoaudiosink chose), and so do the bins of any other pipeline.
gboolean elementAdded(GSignalInvocationHint*, guint count, const GValue* values, gpointer)
{
    if (count < 2)
        return TRUE;
    auto* element = static_cast<GstElement*>(g_value_get_object(&values[1]));
    if (element && g_object_class_find_property(G_OBJECT_GET_CLASS(element), "slave-method")) {
        gst_util_set_object_arg(G_OBJECT(element), "slave-method", "none");
        trace(5, "HostAudioSinkSetup: %s plays without slaving to the pipeline clock\n", GST_ELEMENT_NAME(element));
    }
    return TRUE;  // stay installed
}

} // namespace

bool HostAudioSinkSetup::install()
{
    static const bool installed = [] {
        if (!gst_is_initialized())
            gst_init(nullptr, nullptr);
        const guint signal = g_signal_lookup("element-added", GST_TYPE_BIN);
        g_signal_add_emission_hook(signal, 0, elementAdded, nullptr, nullptr);
        return true;
    }();
    return installed;
}
