#pragma once
// Which output a host engine plays through, decided here and nowhere else:
// the media output when the engine's clock runs in real time, the clock
// output when it is manual (tests and scripts, whose reports must not hang on
// a decoder's timing), unless the application forced one (--output).

#include <memory>

class HostEngineOutput;
class HostEngineOutputListener;
class QWidget;

enum class HostOutputKind {
    Automatic, ///< media in real time, clock in manual time
    Media,
    Clock,
};

class HostOutputChoice {
public:
    /** What every engine plays through from now on (existing ones switch when
     *  the clock next changes mode). Automatic by default. */
    static void setKind(HostOutputKind kind);
    static HostOutputKind kind();

    /** Media or Clock: what an engine would get now. */
    static HostOutputKind effectiveKind();

    /** A new output of effectiveKind(), telling @p listener (not owned) what it
     *  does and drawing video into @p videoArea (not owned). */
    static std::unique_ptr<HostEngineOutput> create(HostEngineOutputListener& listener, QWidget& videoArea);
};
