#include "CoreRig.h"

#include "clipboard/EntryCoder.h"
#include "clipboard/HistoryStore.h"
#include "foundation/Files.h"

#include <benchmark/benchmark.h>

namespace quorvel::testing {

namespace {

/// 200 stored clips of the given length, the most that are kept.
void fill(CoreRig& rig, int length) {
    rig.preferences.set(keys::clipboardHistoryLimit, 50);
    const QString filler = QStringLiteral("The quick brown fox. ").repeated(length / 21 + 1);
    for (int i = 0; i < 200; ++i)
        rig.insert(QStringLiteral("%1 %2").arg(i).arg(filler).left(length));
}

void load(benchmark::State& state) {
    CoreRig rig;
    fill(rig, int(state.range(0)));
    const QString path = rig.folder.filePath(QStringLiteral("history.json"));
    writeFileAtomically(path, encodedHistory(rig.history.recentClipboard()));
    for (auto _ : state)
        benchmark::DoNotOptimize(
            decodedHistory(readWholeFile(path, HistoryStore::mostBytes).bytes));
}

void save(benchmark::State& state) {
    CoreRig rig;
    fill(rig, int(state.range(0)));
    const QString path = rig.folder.filePath(QStringLiteral("history.json"));
    for (auto _ : state)
        writeFileAtomically(path, encodedHistory(rig.history.recentClipboard()));
}

void insertOne(benchmark::State& state) {
    CoreRig rig;
    fill(rig, int(state.range(0)));
    const QString text(state.range(0), QLatin1Char('x'));
    int i = 0;
    for (auto _ : state)
        rig.insert(text + QString::number(++i));
}

} // namespace

BENCHMARK(load)->Arg(1024)->Unit(benchmark::kMillisecond);
BENCHMARK(save)->Arg(1024)->Unit(benchmark::kMillisecond);
BENCHMARK(insertOne)->Arg(1024)->Unit(benchmark::kMicrosecond);

} // namespace quorvel::testing
