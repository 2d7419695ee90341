// Measures the real program on a private desktop, the way its users would notice: from outside.
#include "desktop/ProcessCost.h"
#include "desktop/Subject.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

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

void write(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

enum class Form { popover, native };

void choose(const Subject& subject, Form form) {
    write(subject.preferencesFile(),
          QByteArrayLiteral(R"({"clipboardHistoryLimit": 50, "debug.menuTimings": true,)") +
              R"("customMenuEnabled": )" + (form == Form::popover ? "true}" : "false}"));
}

QJsonObject snippet(int number) {
    const QString text = QStringLiteral("Snippet %1 says hello to everybody").arg(number);
    return {{QStringLiteral("id"), QUuid::createUuid().toString(QUuid::WithoutBraces)},
            {QStringLiteral("title"), QStringLiteral("Snippet %1").arg(number)},
            {QStringLiteral("text"), text}};
}

/// A thousand snippets in fifty groups.
void prepareSnippets(const Subject& subject) {
    QJsonArray groups;
    for (int group = 0; group < 50; ++group) {
        QJsonArray snippets;
        for (int i = 0; i < 20; ++i)
            snippets.append(snippet(group * 20 + i));
        groups.append(
            QJsonObject{{QStringLiteral("id"), QUuid::createUuid().toString(QUuid::WithoutBraces)},
                        {QStringLiteral("name"), QStringLiteral("Group %1").arg(group)},
                        {QStringLiteral("snippets"), snippets}});
    }
    write(subject.snippetsFile(),
          QJsonDocument(QJsonObject{{QStringLiteral("rootSnippets"), QJsonArray()},
                                    {QStringLiteral("groups"), groups}})
              .toJson());
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

void press(PrivateDesktop& desktop, const QString& keys) {
    desktop.run(QStringLiteral("xdotool"), {QStringLiteral("key"), keys});
}

/// Milliseconds between two lines that the program says about its menu.
double timeBetween(const Subject& subject, qsizetype seen, const QByteArray& from,
                   const QByteArray& to) {
    timeUntil([&] { return subject.log().mid(seen).contains(from); });
    const double start = now();
    timeUntil([&] {
        const QByteArray said = subject.log().mid(seen);
        return said.indexOf(to, said.indexOf(from)) >= 0;
    });
    return now() - start;
}

void openMenu(PrivateDesktop& desktop, const Subject& subject, std::vector<double>& painted) {
    const qsizetype seen = subject.log().size();
    const auto keys = desktop.start(QStringLiteral("xdotool"),
                                    {QStringLiteral("key"), QStringLiteral("super+shift+v")});
    painted.push_back(timeBetween(subject, seen, "[MenuPerf] open", "first-paint"));
    waitUntil([&] { return !keys->isRunning(); });
}

void closeMenu(PrivateDesktop& desktop, const Subject& subject) {
    const qsizetype seen = subject.log().size();
    while (!subject.log().mid(seen).contains("[MenuPerf] close")) {
        press(desktop, QStringLiteral("Escape")); // The first one empties the search.
        waitUntil([&] { return subject.log().mid(seen).contains("[MenuPerf] close"); }, 100ms);
    }
}

void measureMenu(PrivateDesktop& desktop, const Subject& subject, const char* form) {
    std::vector<double> painted;
    for (int i = 0; i < 20; ++i) {
        openMenu(desktop, subject, painted);
        closeMenu(desktop, subject);
    }
    std::printf("%s\n", form);
    report("first opening of the menu to painted", "ms", 12, {painted.front()});
    painted.erase(painted.begin());
    report("opening of the menu to painted", "ms", 12, painted);
}

void measureSearch(PrivateDesktop& desktop, const Subject& subject) {
    std::vector<double> ignored;
    std::vector<double> found;
    openMenu(desktop, subject, ignored);
    for (const char* key : {"x", "space", "1", "BackSpace", "2", "BackSpace", "3", "BackSpace"}) {
        const qsizetype seen = subject.log().size();
        const auto keys = desktop.start(QStringLiteral("xdotool"),
                                        {QStringLiteral("key"), QString::fromLatin1(key)});
        found.push_back(timeBetween(subject, seen, "] search", "] paint"));
        waitUntil([&] { return !keys->isRunning(); });
    }
    closeMenu(desktop, subject);
    report("key in the search to painted results", "ms", 4, found);
}

void measureManyOpenings(PrivateDesktop& desktop, const Subject& subject, int count) {
    std::vector<double> ignored;
    const double before = costOf(subject.pid()).pssMegabytes;
    for (int i = 0; i < count; ++i) {
        openMenu(desktop, subject, ignored);
        closeMenu(desktop, subject);
    }
    report("memory (PSS) grown by as many openings", "MB", 0.5,
           {costOf(subject.pid()).pssMegabytes - before});
}

/// From the choice to the text in the program; what the paste waits by design is part of it.
void measurePastes(PrivateDesktop& desktop, const Subject& subject) {
    const auto target = desktop.start(QStringLiteral(QUORVEL_RAW_TARGET));
    timeUntil([&] { return target->hasPrinted("ready"); });
    waitUntil([] { return false; }, 500ms); // the window manager gives it the focus
    for (const char* mode : {"normal", "keepClipboard"}) {
        std::vector<double> arrived;
        for (int i = 0; i < 40; ++i) {
            const qsizetype before = target->output().count("pasted ");
            const double chosen = now();
            subject.ask(QStringLiteral("paste"),
                        {{QStringLiteral("position"), 2},
                         {QStringLiteral("mode"), QString::fromLatin1(mode)}});
            timeUntil([&] { return target->output().count("pasted ") > before; });
            arrived.push_back(now() - chosen);
            waitUntil([] { return false; }, 450ms); // else the next one waits for the end of this
        }
        std::printf("paste, %s\n", mode);
        report("choice to the text in the program", "ms", 95, arrived);
    }
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

/// With 200 clips of 10 KB, pictures among them, and a thousand snippets.
void measureFullMenus(PrivateDesktop& desktop, Subject& subject, int openings) {
    prepareSnippets(subject);
    for (const Form form : {Form::popover, Form::native}) {
        choose(subject, form);
        subject.start();
        if (form == Form::popover)
            followBurst(desktop, subject, QString(10000, QLatin1Char('x')), 200);
        waitUntil([] { return false; }, 1s); // prepared in its idle time, as for a user
        measureMenu(desktop, subject,
                    form == Form::popover ? "popover, much in it" : "native menu, much in it");
        measureSearch(desktop, subject);
        measureManyOpenings(desktop, subject, openings);
        subject.end();
    }
}

void measureAll(std::chrono::seconds idleSpan, int openings) {
    PrivateDesktop desktop({.tray = TrayHost::tint2, .sessionBus = true});
    Subject subject(desktop);
    choose(subject, Form::popover);
    subject.start();
    measureCopyCost(desktop, subject);
    measureCopies(desktop, subject);
    measurePastes(desktop, subject);
    subject.end();
    std::vector<double> starts;
    for (int i = 0; i < 15; ++i) {
        starts.push_back(subject.start());
        subject.end();
    }
    report("start to first capture possible", "ms", 60, starts);
    subject.start();
    measureIdle(subject, idleSpan);
    measureMenu(desktop, subject, "popover");
    report("memory (PSS) after 20 openings", "MB", 25, {costOf(subject.pid()).pssMegabytes});
    subject.end();
    measureFullMenus(desktop, subject, openings);
}

} // namespace

} // namespace quorvel::bench

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    const int seconds = argc > 1 ? QByteArray(argv[1]).toInt() : 60;
    const int openings = argc > 2 ? QByteArray(argv[2]).toInt() : 200;
    quorvel::bench::measureAll(std::chrono::seconds(seconds), openings);
    return 0;
}
