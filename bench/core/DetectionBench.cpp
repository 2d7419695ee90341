#include "platform/text/OwnTextServices.h"
#include "smart/SmartDetector.h"
#include "smart/masking/SecretMasker.h"

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

using namespace quorvel;

struct Detection {
    OwnTextServices services{Region{}};
    SmartPluginRegistry registry;
    SmartDetector detector{registry, services.dataDetector(), services.nameTagger()};
};

const Detection& detection() {
    static const Detection made;
    return made;
}

/// What a day's clips look like, about 50 characters each.
QStringList mixedClips() {
    return {
        QStringLiteral("https://docs.example.org/guide/install#linux-packages"),
        QStringLiteral("Could you send me the slides after the meeting?"),
        QStringLiteral("maria.gonzalez@correo-central.example.com"),
        QStringLiteral("git commit -m \"Fix the leak in the parser\" --amend"),
        QStringLiteral("Tuesday, 12 March 2024 at 14:30"),
        QStringLiteral("+49 30 901820"),
        QStringLiteral("for (const auto& item : items) process(item);"),
        QStringLiteral("1600 Pennsylvania Avenue NW, Washington, DC 20500"),
        QStringLiteral("PROJ-4211: the menu flickers when it opens"),
        QStringLiteral("{\"name\": \"quorvel\", \"version\": [0, 1, 0]}"),
        QStringLiteral("550e8400-e29b-41d4-a716-446655440000"),
        QStringLiteral("The quick brown fox jumps over the lazy dog again"),
        QStringLiteral("rgba(12, 34, 56, .5) and #ff8800"),
        QStringLiteral("Katarzyna Kowalska"),
        QStringLiteral("4111 1111 1111 1111"),
        QStringLiteral("Wir treffen uns morgen um 10 Uhr am Bahnhof"),
        QStringLiteral("DE89370400440532013000"),
        QStringLiteral("Не забудь купить хлеб и молоко по дороге домой"),
        QStringLiteral("/usr/share/doc/packages/README.md"),
        QStringLiteral("total 1,234.56 EUR incl. VAT (19 %)"),
    };
}

void detectMixed(benchmark::State& state) {
    const QStringList clips = mixedClips();
    double worst = 0;
    for (const QString& clip : clips) // what is loaded on first use is not what we measure
        benchmark::DoNotOptimize(detection().detector.detectAutoTags(clip));
    for (auto _ : state) {
        for (const QString& clip : clips) {
            const auto start = std::chrono::steady_clock::now();
            benchmark::DoNotOptimize(detection().detector.detectAutoTags(clip));
            const std::chrono::duration<double, std::micro> took =
                std::chrono::steady_clock::now() - start;
            worst = std::max(worst, took.count());
        }
    }
    state.counters["clips"] =
        benchmark::Counter(double(clips.size()), benchmark::Counter::kIsIterationInvariantRate |
                                                     benchmark::Counter::kInvert);
    state.counters["worst_us"] = worst;
}

QString repeated(const QString& piece, qsizetype size) {
    return piece.repeated(size / piece.size() + 1).left(size);
}

const QString logLines = QStringLiteral("2024-03-05T14:00:01.123Z INFO server[1234] GET "
                                        "/api/v1/items?page=3 200 12ms from 10.0.0.12\n");
const QString json =
    QStringLiteral("{\"id\":12345,\"name\":\"item\",\"tags\":[\"a\",\"b\"],\"p\":1.5},");

QString bigText(int kind, qsizetype size) {
    switch (kind) {
    case 0:
        return repeated(logLines, size);
    case 1:
        return repeated(QStringLiteral("3141592653589793"), size);
    case 2:
        return repeated(QStringLiteral("QWxhZGRpbjpvcGVuIHNlc2FtZQabcXYZ"), size);
    default:
        return u'[' + repeated(json, size - size % json.size()).chopped(2) + QStringLiteral("}]");
    }
}

const char* bigTextName(int kind) {
    constexpr const char* names[] = {"log", "digits", "one word", "JSON"};
    return names[kind];
}

void detectBig(benchmark::State& state) {
    const QString text = bigText(int(state.range(0)), state.range(1));
    for (auto _ : state)
        benchmark::DoNotOptimize(detection().detector.detectAutoTags(text));
    state.SetLabel(bigTextName(int(state.range(0))));
}

void maskBig(benchmark::State& state) {
    const QString text = bigText(int(state.range(0)), state.range(1));
    for (auto _ : state)
        benchmark::DoNotOptimize(secretsIn(text));
    state.SetLabel(bigTextName(int(state.range(0))));
}

} // namespace

BENCHMARK(detectMixed)->Unit(benchmark::kMicrosecond);
BENCHMARK(detectBig)
    ->ArgsProduct({{0, 1, 2, 3}, {1'000'000, 10'000'000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(maskBig)->ArgsProduct({{0, 1, 2, 3}, {10'000'000}})->Unit(benchmark::kMillisecond);
