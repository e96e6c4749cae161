// How fast the media-controls bridge (mp-mpris) tells the desktop what the
// player said, and whether it bothers the player while nothing happens. The
// bridge runs as its own process on a private session bus with an empty data
// folder; this program plays the player's part: it announces a player, then
// flips the idle screen's play state and times each change from the moment
// it is sent to the moment the bridge's PropertiesChanged for it comes in.

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDataStream>
#include <QEventLoop>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <vector>

#include "bench/BusProbe.h"
#include "host/contracts/IdleScreenChannel.h"
#include "host/contracts/MediaBrowserChannel.h"
#include "platform/StreamEncoding.h"
#include "tests/support/PrivateBus.h"

namespace {

const int kTimeoutMs = 5000;
// The promise the bridge keeps: every change reported within this time.
const auto kPromisedLatency = std::chrono::milliseconds(100);

BusProbe* g_probe = nullptr;
int g_sentAtStart = 0;

QByteArray intPayload(qint32 value)
{
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    MP_SetPayloadFormat(stream);
    stream << value;
    return data;
}

/** The value at fraction @p at (0..1) of the sorted @p samples. */
double percentile(std::vector<double> samples, double at)
{
    std::sort(samples.begin(), samples.end());
    return samples.at(size_t(at * double(samples.size() - 1) + 0.5));
}

// One idle-screen state message per iteration, playing and stopped in turn:
// each changes PlaybackStatus and nothing else the bridge shows.
void BM_StateChangeReported(benchmark::State& state)
{
    BusProbe& probe = *g_probe;
    if (!probe.settle(kTimeoutMs)) {
        state.SkipWithError("the bridge does not answer");
        return;
    }
    const int changesBefore = probe.propertiesChangedCount();
    std::vector<double> latenciesUs;
    int messages = 0;
    int late = 0;
    for (auto _ : state) {
        const bool playing = messages % 2 == 0;
        const auto sent = BusProbe::Clock::now();
        probe.send(IdleScreenChannel::kChannel, IdleScreenChannel::kState, intPayload(playing ? 1 : 0));
        ++messages;
        if (!probe.waitForPropertiesChanged(kTimeoutMs)) {
            state.SkipWithError("no PropertiesChanged for a state change");
            return;
        }
        const QVariantMap expected{{QStringLiteral("PlaybackStatus"), playing ? "Playing" : "Stopped"}};
        if (probe.lastChanged() != expected) {
            state.SkipWithError("the bridge reported something else than the state change");
            return;
        }
        const std::chrono::duration<double> latency = probe.lastChangedAt() - sent;
        state.SetIterationTime(latency.count());
        latenciesUs.push_back(latency.count() * 1e6);
        late += latency > kPromisedLatency ? 1 : 0;
    }
    // Anything the bridge sent after the last answer counts too.
    if (!probe.settle(kTimeoutMs)) {
        state.SkipWithError("the bridge does not answer");
        return;
    }
    state.counters["changes_per_message"] = double(probe.propertiesChangedCount() - changesBefore) / messages;
    state.counters["p50_us"] = percentile(latenciesUs, 0.5);
    state.counters["p99_us"] = percentile(latenciesUs, 0.99);
    state.counters["max_us"] = percentile(latenciesUs, 1.0);
    state.counters["over_100ms"] = late;
}
BENCHMARK(BM_StateChangeReported)->UseManualTime()->Iterations(2000)->Repetitions(3)->Unit(benchmark::kMicrosecond);

// The bridge left alone with a playing player: every iteration runs the
// event loop for a set time and counts the channel messages the bridge
// sends meanwhile. sent_at_start shows that its messages are heard at all.
void BM_IdleBridgeSendsNothing(benchmark::State& state)
{
    BusProbe& probe = *g_probe;
    probe.send(IdleScreenChannel::kChannel, IdleScreenChannel::kState, intPayload(1));
    if (!probe.settle(kTimeoutMs)) {
        state.SkipWithError("the bridge does not answer");
        return;
    }
    const int heardBefore = probe.channelMessagesHeard();
    for (auto _ : state) {
        QEventLoop loop;
        QTimer::singleShot(int(state.range(0)), &loop, &QEventLoop::quit);
        loop.exec();
    }
    state.counters["sent_while_idle"] = probe.channelMessagesHeard() - heardBefore;
    state.counters["sent_at_start"] = g_sentAtStart;
}
BENCHMARK(BM_IdleBridgeSendsNothing)->Arg(250)->Iterations(20)->UseRealTime()->Unit(benchmark::kMillisecond);

int fail(const char* what, QProcess& bridge)
{
    std::fprintf(stderr, "%s\n%s", what, bridge.readAllStandardError().constData());
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const PrivateBus bus;
    if (bus.address().isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(bus.error()));
        return 1;
    }
    QTemporaryDir data;
    // Listening before the bridge starts, to hear what it asks the player then.
    auto probe = std::make_unique<BusProbe>(bus.address());
    if (!data.isValid() || !probe->isConnected()) {
        std::fprintf(stderr, "cannot prepare a data folder and a bus connection\n");
        return 1;
    }
    QProcess bridge;
    bridge.setProcessEnvironment(bus.environment());
    bridge.start(QStringLiteral(MP_BIN_DIR "/mp-mpris"), {QStringLiteral("--data-dir"), data.path()});
    if (!probe->waitForBridge(kTimeoutMs) || !probe->settle(kTimeoutMs))
        return fail("mp-mpris did not come up on the bus", bridge);
    g_sentAtStart = probe->channelMessagesHeard();

    // The media browser's greeting: the bridge now shows a player.
    probe->send(MediaBrowserChannel::kNewsChannel, MediaBrowserChannel::kStarted);
    if (!probe->waitForPropertiesChanged(kTimeoutMs))
        return fail("mp-mpris did not see the player", bridge);
    g_probe = probe.get();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    g_probe = nullptr;
    probe.reset();
    bridge.kill();
    bridge.waitForFinished(kTimeoutMs);
    return 0;
}
