#pragma once
// Sets up every GStreamer audio sink that Qt Multimedia makes for the media
// output, as it is put into its pipeline: the sink plays the samples it is
// given in order instead of slaving its ring buffer to the pipeline's clock.
//
// Why: Qt 6.4's GStreamer player drives its pipeline by the system clock, and
// after a flushing seek the audio sink measures a skew of thousands of hours
// between that clock and the sound server's; it then drops every sample as
// late, and the rest of the item plays as silence (it still ends on time).
// Without slaving, a seek sounds at once, and the drift between the two
// clocks over a song is a few milliseconds, which nobody hears.

class HostAudioSinkSetup {
public:
    /** Installs the setup for the rest of the process (more calls do nothing);
     *  true, so that a member can be initialised by it before the audio output. */
    static bool install();
};
