// Measures the real program on a private desktop, the way its users would notice: from outside.
#include "desktop/ProcessCost.h"
#include "desktop/Subject.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstdio>

using namespace std::chrono_literals;

namespace quorvel::bench {

namespace {

/// Prints one line: what, goal, median and worst.
void report(const char* what, const char* unit, double goal, std::vector<double> samples) {
    std::sort(samples.begin(), samples.end());
    std::printf("%-44s goal %6.1f %-8s median %8.2f  worst %8.2f  (%zu)\n", what, goal, unit,
                samples.at(samples.size() / 2), samples.back(), samples.size());
    std::fflush(stdout);
}

void prepare(const Subject& subject) {
    QDir().mkpath(QFileInfo(subject.preferencesFile()).path());
    QFile file(subject.preferencesFile());
    if (file.open(QIODevice::WriteOnly))
        file.write(R"({"clipboardHistoryLimit": 50, "debug.menuTimings": true})");
}

/// What one copy in a burst took.
struct CopyTimes {
    double copied = -1;
    double listed = -1;
    double onDisk = -1;
};

std::vector<CopyTimes> followBurst(PrivateDesktop& desktop, const Subject& subject,
                                   const QString& filler, int count) {
    const auto owner =
        desktop.start(QStringLiteral(QUORVEL_RAW_OWNER),
                      {QStringLiteral("--burst"), QString::number(count), QStringLiteral("--every"),
                       QStringLiteral("150"), QStringLiteral("--burst-text"), filler});
    std::vector<CopyTimes> times(size_t(count) + 1);
    for (int i = 1; i <= count; ++i) {
        const QString text = filler + u' ' + QString::number(i);
        CopyTimes& time = times[size_t(i)];
        timeUntil([&] {
            if (time.copied < 0 && owner->hasPrinted("copied " + text.toUtf8()))
                time.copied = now();
            if (time.onDisk < 0) {
                QFile journal(subject.journal());
                if (journal.open(QIODevice::ReadOnly) && journal.readAll().contains(text.toUtf8()))
                    time.onDisk = now();
            }
            if (time.listed < 0) {
                const QJsonArray list = subject.list(1);
                if (!list.isEmpty() &&
                    list.first().toObject().value(QStringLiteral("text")).toString() == text)
                    time.listed = now();
            }
            return time.copied > 0 && time.listed > 0 && time.onDisk > 0;
        });
    }
    times.erase(times.begin());
    return times;
}

void measureCopies(PrivateDesktop& desktop, const Subject& subject) {
    const QString filler = QString(1000, QLatin1Char('x'));
    std::vector<double> listed;
    std::vector<double> onDisk;
    for (const CopyTimes& time : followBurst(desktop, subject, filler, 40)) {
        listed.push_back(std::max(0.0, time.listed - time.copied));
        onDisk.push_back(std::max(0.0, time.onDisk - time.copied));
    }
    report("copy of 1 KB to listed", "ms", 3, listed);
    report("copy of 1 KB to the journal on disk", "ms", 15, onDisk);
}

void measureCopyCost(PrivateDesktop& desktop, const Subject& subject) {
    constexpr int copies = 200;
    const double before = costOf(subject.pid()).cpuMilliseconds;
    const auto owner = desktop.start(QStringLiteral(QUORVEL_RAW_OWNER),
                                     {QStringLiteral("--burst"), QString::number(copies),
                                      QStringLiteral("--every"), QStringLiteral("20"),
                                      QStringLiteral("--burst-text"), QString(1000, u'y')});
    const QByteArray last = QByteArray(1000, 'y') + " 200";
    timeUntil([&] { return owner->hasPrinted("copied " + last); });
    waitUntil([] { return false; }, 600ms); // the file write after the burst belongs to it
    const double used = costOf(subject.pid()).cpuMilliseconds - before;
    report("processor time of a copy of 1 KB", "ms", 1.5, {used / copies});
}

void measureMenu(PrivateDesktop& desktop, const Subject& subject) {
    std::vector<double> painted;
    for (int i = 0; i < 20; ++i) {
        const qsizetype seen = subject.log().size();
        const auto keys = desktop.start(QStringLiteral("xdotool"),
                                        {QStringLiteral("key"), QStringLiteral("super+shift+v")});
        timeUntil([&] { return subject.log().mid(seen).contains("[MenuPerf] open"); });
        const double opened = now();
        timeUntil([&] { return subject.log().mid(seen).contains("first-paint"); });
        painted.push_back(now() - opened);
        waitUntil([&] { return !keys->isRunning(); });
        desktop.run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Escape")});
        timeUntil([&] { return subject.log().mid(seen).contains("[MenuPerf] close"); });
    }
    report("first opening of the menu to painted", "ms", 12, {painted.front()});
    painted.erase(painted.begin());
    report("opening of the menu to painted", "ms", 12, painted);
}

void measureIdle(const Subject& subject, std::chrono::seconds span) {
    waitUntil([] { return false; }, 6s); // caches that are given back after use are back by then
    const ProcessCost before = costOf(subject.pid());
    waitUntil([] { return false; }, span);
    const ProcessCost after = costOf(subject.pid());
    const double minutes = double(span.count()) / 60;
    report("wake-ups a minute, idle", "", 4, {double(after.wakeUps - before.wakeUps) / minutes});
    report("processor time a minute, idle", "ms", 1,
           {(after.cpuMilliseconds - before.cpuMilliseconds) / minutes});
    report("memory (PSS), idle, 200 clips", "MB", 25, {after.pssMegabytes});
}

void measureAll(std::chrono::seconds idleSpan) {
    PrivateDesktop desktop({.tray = TrayHost::tint2, .sessionBus = true});
    Subject subject(desktop);
    prepare(subject);
    subject.start();
    measureCopyCost(desktop, subject);
    measureCopies(desktop, subject);
    subject.end();
    std::vector<double> starts;
    for (int i = 0; i < 15; ++i) {
        starts.push_back(subject.start());
        subject.end();
    }
    report("start to first capture possible", "ms", 60, starts);
    subject.start();
    measureIdle(subject, idleSpan);
    measureMenu(desktop, subject);
    report("memory (PSS) after 20 openings", "MB", 25, {costOf(subject.pid()).pssMegabytes});
}

} // namespace

} // namespace quorvel::bench

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    const int seconds = argc > 1 ? QByteArray(argv[1]).toInt() : 60;
    quorvel::bench::measureAll(std::chrono::seconds(seconds));
    return 0;
}
