#include "desktop/DesktopTest.h"

#include <QFile>

#include <csignal>

namespace quorvel {

namespace {

using namespace std::chrono_literals;

class DataSafetyTest : public DesktopTest {
protected:
    void SetUp() override { startDesktop(TrayHost::none); }

    QString historyFile() {
        return desktop().dataHome() + QStringLiteral("/QuorvelMenuBar/clipboard-history.json");
    }
    QString preferencesFile() {
        return desktop().configHome() + QStringLiteral("/QuorvelMenuBar/preferences.json");
    }
    void put(const QString& path, const QByteArray& bytes) {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    static QByteArray content(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    bool endProgram() {
        control({QStringLiteral("quit")});
        return waitUntil([&] { return !program().isRunning(); });
    }
    void killProgram() {
        program().signal(SIGKILL);
        ASSERT_TRUE(waitUntil([&] { return !program().isRunning(); }));
    }
    QString saveProblem() {
        return status()[QStringLiteral("problems")]
            .toObject()[QStringLiteral("history")]
            .toString();
    }
};

TEST_F(DataSafetyTest, theHistorySurvivesARestart) {
    ASSERT_TRUE(startProgram());
    copyWithXclip("kept \xe2\x9c\x93");
    ASSERT_TRUE(waitUntil([&] { return !clips().isEmpty(); }));
    ASSERT_TRUE(endProgram());
    ASSERT_TRUE(startProgram());
    EXPECT_EQ(newestText(), QStringLiteral("kept ✓"));
    EXPECT_EQ(clips().size(), 1) << "what is on the clipboard at the start is no new copy";
}

TEST_F(DataSafetyTest, aCopySurvivesBeingKilledAtAnyMomentAfterIt) {
    for (const auto delay : {50ms, 100ms, 200ms, 340ms, 360ms, 400ms}) {
        ASSERT_TRUE(startProgram());
        const QByteArray text = "copied " + QByteArray::number(int(delay.count())) + " ms before";
        copyWithXclip(text);
        std::this_thread::sleep_for(delay); // the moment of the crash is what is varied here
        killProgram();
        ASSERT_TRUE(startProgram()) << "a lock was left behind";
        EXPECT_EQ(newestText(), QString::fromUtf8(text));
        ASSERT_TRUE(endProgram());
    }
    ASSERT_TRUE(startProgram());
    EXPECT_EQ(clips().size(), 6);
    EXPECT_TRUE(status()[QStringLiteral("setAsideFiles")].toArray().isEmpty());
}

TEST_F(DataSafetyTest, beingKilledInTheMiddleOfABurstLeavesAWholeState) {
    ASSERT_TRUE(startProgram());
    const auto owner = desktop().start(QStringLiteral(QUORVEL_RAW_OWNER),
                                       {QStringLiteral("--burst"), QStringLiteral("1000")});
    ASSERT_TRUE(waitUntil([&] { return owner->hasPrinted("copied burst 300"); }));
    killProgram();
    ASSERT_TRUE(startProgram());
    EXPECT_EQ(clips().size(), 20);
    EXPECT_TRUE(status()[QStringLiteral("setAsideFiles")].toArray().isEmpty());
}

TEST_F(DataSafetyTest, damagedFilesAreSetAsideAndToldOf) {
    const QByteArrayList damaged{"", "{\"entries\": [", "[]", "\xff\xfe", "{\"entries\": [7]}"};
    for (const QByteArray& bytes : damaged) {
        put(historyFile(), bytes);
        put(preferencesFile(), "{\"clipboardHistoryLimit\": ");
        ASSERT_TRUE(startProgram()) << bytes.constData();
        const QJsonArray aside = status()[QStringLiteral("setAsideFiles")].toArray();
        ASSERT_EQ(aside.size(), 2);
        EXPECT_EQ(content(aside.at(0).toString()), bytes);
        copyWithXclip("after " + bytes.toHex());
        ASSERT_TRUE(waitUntil([&] { return !clips().isEmpty(); }));
        ASSERT_TRUE(endProgram());
        EXPECT_EQ(content(aside.at(0).toString()), bytes);
        ASSERT_TRUE(startProgram());
        EXPECT_EQ(newestText().toUtf8(), "after " + bytes.toHex());
        ASSERT_TRUE(endProgram());
    }
}

TEST_F(DataSafetyTest, giantFilesAndFoldersInTheirPlaceDoNotHoldUpTheStart) {
    put(historyFile(), {});
    ASSERT_TRUE(QFile::resize(historyFile(), 500LL * 1024 * 1024));
    ASSERT_TRUE(QDir().mkpath(preferencesFile()));
    ASSERT_TRUE(startProgram());
    EXPECT_EQ(status()[QStringLiteral("setAsideFiles")].toArray().size(), 2);
}

TEST_F(DataSafetyTest, withoutAPlaceToWriteItRunsAndSaysSo) {
    desktop().setVariable(QStringLiteral("XDG_DATA_HOME"), QStringLiteral("/proc/no-such-place"));
    ASSERT_TRUE(startProgram());
    copyWithXclip("only in memory");
    EXPECT_TRUE(waitUntil([&] { return !saveProblem().isEmpty(); }));
    EXPECT_EQ(newestText(), QStringLiteral("only in memory"));
    EXPECT_TRUE(endProgram());
}

TEST_F(DataSafetyTest, aFullDiskIsToldOfAndSavingResumesByItself) {
    ASSERT_TRUE(startProgram());
    const auto limitFiles = [&](const char* size) {
        const ProgramResult limited = desktop().run(
            QStringLiteral("prlimit"), {QStringLiteral("--pid=%1").arg(program().pid()),
                                        QStringLiteral("--fsize=%1").arg(QLatin1StringView(size))});
        ASSERT_EQ(limited.exitCode, 0) << limited.errors.constData();
    };
    copyWithXclip("before");
    ASSERT_TRUE(waitUntil([&] { return content(historyFile()).contains("before"); }));
    limitFiles("1000:unlimited");
    copyWithXclip(QByteArray(5000, 'x'));
    EXPECT_TRUE(waitUntil([&] { return !saveProblem().isEmpty(); }));
    EXPECT_TRUE(content(historyFile()).contains("before")) << "the old file must stay whole";
    limitFiles("unlimited");
    EXPECT_TRUE(waitUntil([&] { return saveProblem().isEmpty(); }));
    EXPECT_TRUE(content(historyFile()).contains("xxxxx"));
}

TEST_F(DataSafetyTest, losingTheDisplayEndsItWithTheHistorySaved) {
    const auto otherDisplay = desktop().start(QStringLiteral("Xvfb"),
                                              {QStringLiteral("-displayfd"), QStringLiteral("1"),
                                               QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    ASSERT_TRUE(waitUntil([&] { return otherDisplay->output().contains('\n'); }));
    const QString name = u':' + QString::fromLatin1(otherDisplay->output().trimmed());
    desktop().setVariable(QStringLiteral("DISPLAY"), name);
    ASSERT_TRUE(startProgram());
    ASSERT_EQ(control({QStringLiteral("copy")}, "saved at the end").exitCode, 0);
    otherDisplay->signal(SIGKILL);
    ASSERT_TRUE(waitUntil([&] { return !program().isRunning(); }));
    EXPECT_EQ(program().exitCode(), 0) << program().errors().constData();
    EXPECT_TRUE(content(historyFile()).contains("saved at the end"));
}

TEST_F(DataSafetyTest, asksToEndAreFollowedWithTheHistorySaved) {
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        ASSERT_TRUE(startProgram());
        const QByteArray text = "before signal " + QByteArray::number(number);
        ASSERT_EQ(control({QStringLiteral("copy")}, text).exitCode, 0);
        program().signal(number);
        ASSERT_TRUE(waitUntil([&] { return !program().isRunning(); }));
        EXPECT_EQ(program().exitCode(), 0);
        EXPECT_TRUE(content(historyFile()).contains(text));
    }
}

} // namespace

} // namespace quorvel
