#include "MenuRig.h"

#include "foundation/Files.h"
#include "menu/ClipItems.h"
#include "snippets/SnippetCoder.h"

#include <QStringBuilder>

#include <benchmark/benchmark.h>

namespace quorvel::testing {

namespace {

constexpr int clipCount = 200;
constexpr int tagCount = int(ClipboardAutoTag::terminalCommand) + 1;
constexpr int groupCount = 50;
constexpr int snippetsPerGroup = 20;

/// Of one kind each that a smart folder collects.
const std::array<QString, 6> snippetTexts{
    QStringLiteral("550e8400-e29b-41d4-a716-4466554%1"),
    QStringLiteral("git commit -m \"change %1\" && git push"),
    QStringLiteral("10.0.0.1 %1"),
    QStringLiteral("#f%1"),
    QStringLiteral("PROJ-%1"),
    QStringLiteral("Dear customer %1, the quick brown fox jumps over the lazy dog."),
};

StoreData library() {
    StoreData data;
    for (int i = 0; i < groupCount; ++i) {
        SnippetGroup group{.id = QUuid::createUuid(), .name = QStringLiteral("Group %1").arg(i)};
        for (int j = 0; j < snippetsPerGroup; ++j)
            group.snippets.append(
                {.id = QUuid::createUuid(),
                 .title = QStringLiteral("Snippet %1 of %2").arg(j).arg(i),
                 .text = snippetTexts[std::size_t(j) % snippetTexts.size()].arg(10000 + j)});
        data.groups.append(group);
    }
    return data;
}

constexpr int manySnippets = 10'000;

enum class Where { root, group };

/// As many as a library may hold, all in one place.
StoreData hugeLibrary(Where where) {
    QList<Snippet> snippets;
    for (int i = 0; i < manySnippets; ++i)
        snippets.append(
            {.id = QUuid::createUuid(),
             .title = QStringLiteral("Snippet %1").arg(i),
             .text = snippetTexts[std::size_t(i) % snippetTexts.size()].arg(10000 + i)});
    if (where == Where::root)
        return {.rootSnippets = snippets};
    return {.groups = {{.id = QUuid::createUuid(), .name = u"All"_qs, .snippets = snippets}}};
}

/// A full menu: all folders, the most clips of the given length, a big library of snippets.
struct FullMenu : MenuRig {
    explicit FullMenu(int length, const StoreData& snippetData = library()) {
        preferences.set(keys::clipboardHistoryLimit, 50);
        const QString filler = QStringLiteral("The quick brown fox. ").repeated(length / 21 + 1);
        for (int i = 0; i < clipCount; ++i)
            history.insert({.text = QStringLiteral("%1 %2").arg(i).arg(filler).left(length),
                            .autoTags = {static_cast<ClipboardAutoTag>(i % tagCount)}});
        writeFileAtomically(snippets.fileURL(), encodedSnippetFile(snippetData));
        snippets.load();
        preparation.start();
        mainQueue.advance(MenuPreparation::delay);
    }

    MenuPreparation preparation{content, folderSnippets, history, snippets, mainQueue};
};

void buildMenu(benchmark::State& state) {
    const FullMenu menu(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(statusMenu(menu.content, {}));
}

/// What one key typed into the search field costs before anything is drawn, when what is searched
/// for does not go on from what was searched for before.
void searchMenu(benchmark::State& state, const char* query) {
    const FullMenu menu(10 * 1024);
    const MenuState searching{.searchQuery = QString::fromLatin1(query)};
    const MenuState before{.searchQuery = QStringLiteral("zqj")};
    for (auto _ : state) {
        state.PauseTiming();
        statusMenu(menu.content, before);
        state.ResumeTiming();
        benchmark::DoNotOptimize(statusMenu(menu.content, searching));
    }
}

/// What a key costs when every text is as long as clips may be.
void searchLongClips(benchmark::State& state) {
    const FullMenu menu(1024 * 1024);
    const QString typed = QStringLiteral("the quick brown foxes");
    qsizetype length = 0;
    for (auto _ : state) {
        length = length % typed.size() + 1;
        benchmark::DoNotOptimize(statusMenu(menu.content, {.searchQuery = typed.left(length)}));
    }
}

void buildMenuOfManySnippets(benchmark::State& state) {
    const FullMenu menu(50, hugeLibrary(Where::root));
    for (auto _ : state)
        benchmark::DoNotOptimize(statusMenu(menu.content, {}));
}

void fillGroupOfManySnippets(benchmark::State& state) {
    const FullMenu menu(50, hugeLibrary(Where::group));
    const QString identifier = groupIdentifier % idText(menu.snippets.groups().constFirst().id);
    for (auto _ : state)
        benchmark::DoNotOptimize(submenuItems(identifier, MenuBuild(menu.content, {})));
}

} // namespace

BENCHMARK(buildMenu)->Arg(50)->Arg(10 * 1024)->Arg(1024 * 1024)->Unit(benchmark::kMicrosecond);
BENCHMARK(buildMenuOfManySnippets)->Unit(benchmark::kMicrosecond);
BENCHMARK(fillGroupOfManySnippets)->Unit(benchmark::kMicrosecond);
BENCHMARK(searchLongClips)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(searchMenu, everything, "e")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(searchMenu, a_few, "Snippet")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(searchMenu, at_the_ends, "199 the quick")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(searchMenu, nothing, "the quick brown foxes")->Unit(benchmark::kMicrosecond);

} // namespace quorvel::testing
