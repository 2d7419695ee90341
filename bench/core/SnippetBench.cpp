#include "foundation/Files.h"
#include "snippets/SnippetCoder.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace quorvel::testing {

namespace {

StoreData library(qint64 count) {
    StoreData data;
    data.groups.append({.id = QUuid::createUuid(), .name = QStringLiteral("Group")});
    for (qint64 i = 0; i < count; ++i)
        (i % 2 == 0 ? data.rootSnippets : data.groups.first().snippets)
            .append({.id = QUuid::createUuid(),
                     .title = QStringLiteral("Title %1").arg(i),
                     .text = QStringLiteral("%1 The quick brown fox. ").arg(i).repeated(8)});
    return data;
}

struct SnippetFolder {
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("snippets.json"));
};

void loadSnippets(benchmark::State& state) {
    const SnippetFolder file;
    writeFileAtomically(file.path, encodedSnippetFile(library(state.range(0))));
    constexpr qint64 mostBytes = 1LL << 30;
    for (auto _ : state)
        benchmark::DoNotOptimize(decodedSnippetFile(readWholeFile(file.path, mostBytes).bytes));
}

void saveSnippets(benchmark::State& state) {
    const SnippetFolder file;
    const StoreData data = library(state.range(0));
    for (auto _ : state)
        writeFileAtomically(file.path, encodedSnippetFile(data));
}

} // namespace

BENCHMARK(loadSnippets)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(saveSnippets)->Arg(10'000)->Unit(benchmark::kMillisecond);

} // namespace quorvel::testing
