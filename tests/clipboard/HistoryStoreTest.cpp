#include "CoreRig.h"

#include "clipboard/EntryCoder.h"
#include "clipboard/HistoryStore.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace quorvel::testing {

/// One session of the program on a data folder; another one sees what this one left.
struct Session : CoreRig {
    explicit Session(const QString& data)
        : historyFile(data + QStringLiteral("/QuorvelMenuBar/clipboard-history.json"))
        , journalFile(data + QStringLiteral("/QuorvelMenuBar/clipboard-history.journal"))
        , keeper(historyFile, journalFile, history, clock, mainQueue, disk) {
        keeper.load();
    }

    void letWriteHappen() {
        mainQueue.advance(HistoryStore::writeDelay);
        mainQueue.settle();
    }

    QString historyFile;
    QString journalFile;
    HistoryStore keeper;
};

class HistoryStoreTest : public ::testing::Test {
protected:
    static QByteArray read(const QString& name) {
        QFile source(name);
        return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
    }
    void put(const QString& name, const QByteArray& bytes) {
        QDir().mkpath(path(QString()));
        QFile target(path(name));
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(bytes);
    }
    QString path(const QString& name) const {
        return data.filePath(QStringLiteral("QuorvelMenuBar/") + name);
    }

    const QString file = QStringLiteral("clipboard-history.json");
    const QString journal = QStringLiteral("clipboard-history.journal");
    QTemporaryDir data;
};

TEST_F(HistoryStoreTest, TheFileHasItsExactShape) {
    Session run(data.path());
    run.history.insert({.text = QStringLiteral("a"),
                        .imagePNGData = "png",
                        .autoTags = {ClipboardAutoTag::image},
                        .sourceAppName = QStringLiteral("Editor")});
    run.history.pinFor(run.first().id, 1h);
    run.letWriteHappen();
    const QByteArray id = run.first().id.toByteArray(QUuid::WithoutBraces).toUpper();
    EXPECT_EQ(read(run.historyFile), QByteArray(R"({
    "entries": [
        {
            "autoTags": [
                "image"
            ],
            "copiedAt": 800000000,
            "id": ")") + id + R"(",
            "imagePNGData": "cG5n",
            "pinned": true,
            "pinnedUntil": 800003600,
            "sourceAppName": "Editor",
            "text": "a",
            "usageCount": 0
        }
    ]
}
)");
    const auto mode = QFile::permissions(run.historyFile) & QFile::Permissions(0x0FF);
    EXPECT_EQ(mode & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup),
              QFile::Permissions());
}

TEST_F(HistoryStoreTest, ABurstIsOneWriteAndTheJournalBridgesIt) {
    Session run(data.path());
    for (int i = 0; i < 100; ++i) {
        run.insert(QString::number(i));
        run.mainQueue.advance(5ms);
    }
    EXPECT_FALSE(QFile::exists(run.historyFile));
    EXPECT_FALSE(read(run.journalFile).isEmpty());
    run.letWriteHappen();
    EXPECT_EQ(decodedHistory(read(run.historyFile)).entries.size(), 20);
    EXPECT_TRUE(read(run.journalFile).isEmpty());
}

TEST_F(HistoryStoreTest, EveryChangeSurvivesACrashBeforeTheWrite) {
    QStringList expected;
    bool pinned = false;
    {
        Session run(data.path());
        for (const char* text : {"a", "b", "c", "d"})
            run.insert(QString::fromLatin1(text));
        run.letWriteHappen();
        run.history.bump(*run.history.entry(run.idOf(QStringLiteral("a"))));
        run.history.remove(run.idOf(QStringLiteral("b")));
        run.insert(QStringLiteral("e\n\"line\" \\"));
        run.history.togglePin(run.idOf(QStringLiteral("c")));
        expected = run.texts();
        run.disk.forget();
    }
    Session after(data.path());
    EXPECT_EQ(after.texts(), expected);
    pinned = after.history.entry(after.idOf(QStringLiteral("c")))->pinned;
    EXPECT_TRUE(pinned);
    EXPECT_EQ(after.history.entry(after.idOf(QStringLiteral("a")))->usageCount, 1);
}

TEST_F(HistoryStoreTest, ACrashAtAnyMomentOfTheDiskLosesNothingThatReachedIt) {
    // Copies 1 to 6 with a whole write after the third; the crash comes after each number of jobs.
    for (int jobsDone = 1; jobsDone <= 6; ++jobsDone) {
        QTemporaryDir fresh;
        Session run(fresh.path());
        run.disk.hold();
        for (int i = 1; i <= 6; ++i) {
            run.insert(QString::number(i));
            if (i == 3)
                run.mainQueue.advance(HistoryStore::writeDelay);
            if (int(run.disk.waiting()) > 0 && jobsDone >= i)
                run.disk.runOne();
        }
        run.disk.forget();
        Session after(fresh.path());
        QStringList expected;
        for (int i = std::min(jobsDone, 6); i >= 1; --i)
            expected.append(QString::number(i));
        for (const QString& text : expected.mid(jobsDone > 3 ? 1 : 0))
            EXPECT_TRUE(after.texts().contains(text)) << jobsDone << qPrintable(text);
    }
}

TEST_F(HistoryStoreTest, ARecordMadeWhileAWriteWaitsIsNotEmptiedAway) {
    Session run(data.path());
    run.disk.hold();
    run.insert(QStringLiteral("before"));
    run.mainQueue.advance(HistoryStore::writeDelay);
    run.insert(QStringLiteral("after"));
    run.disk.drain();
    EXPECT_TRUE(read(run.journalFile).contains("after"));
    run.disk.forget();
    EXPECT_EQ(Session(data.path()).texts(),
              QStringList({QStringLiteral("after"), QStringLiteral("before")}));
}

TEST_F(HistoryStoreTest, ATornJournalLineLosesOnlyItself) {
    {
        Session run(data.path());
        run.insert(QStringLiteral("a"));
        run.insert(QStringLiteral("torn"));
        run.disk.forget();
    }
    QFile torn(path(journal));
    ASSERT_TRUE(torn.resize(torn.size() - 10));
    {
        Session run(data.path());
        EXPECT_EQ(run.texts(), QStringList(QStringLiteral("a")));
        run.insert(QStringLiteral("b"));
        run.disk.forget();
    }
    EXPECT_EQ(Session(data.path()).texts(),
              QStringList({QStringLiteral("b"), QStringLiteral("a")}));
}

TEST_F(HistoryStoreTest, DamagedFilesAreSetAsideAndTheRestIsKept) {
    Session writer(data.path());
    writer.insert(QStringLiteral("good"));
    writer.letWriteHappen();
    const QByteArray whole = read(writer.historyFile);
    QByteArray wrongType = whole;
    wrongType.replace("\"entries\": [", "\"entries\": [ {\"id\": 7}, ");
    struct Case {
        QByteArray bytes;
        qsizetype kept;
    };
    const Case cases[] = {
        {"", 0},        {whole.left(whole.size() / 2), 0}, {"[]", 0}, {"{\"entries\": 3}", 0},
        {wrongType, 1}, {QByteArray("\0\xff\x80", 3), 0},
    };
    for (const Case& c : cases) {
        put(file, c.bytes);
        Session run(data.path());
        EXPECT_EQ(run.history.recentClipboard().size(), c.kept) << c.bytes.constData();
        ASSERT_EQ(run.keeper.setAsideFiles().size(), 1) << c.bytes.constData();
        EXPECT_EQ(read(run.keeper.setAsideFiles().first()), c.bytes);
        run.insert(QStringLiteral("new"));
        run.letWriteHappen();
        EXPECT_EQ(read(run.keeper.setAsideFiles().first()), c.bytes);
        EXPECT_EQ(decodedHistory(read(run.historyFile)).entries.size(), c.kept + 1);
    }
}

TEST_F(HistoryStoreTest, GiantAndUnreadableFilesAreSetAsideUnread) {
    put(file, {});
    ASSERT_TRUE(QFile::resize(path(file), 500LL * 1024 * 1024));
    EXPECT_EQ(Session(data.path()).keeper.setAsideFiles().size(), 1);
    ASSERT_TRUE(QDir().mkpath(path(file))); // a folder in its place cannot be read
    Session run(data.path());
    EXPECT_EQ(run.keeper.setAsideFiles().size(), 1);
    run.insert(QStringLiteral("x"));
    run.letWriteHappen();
    EXPECT_EQ(decodedHistory(read(run.historyFile)).entries.size(), 1);
}

TEST_F(HistoryStoreTest, WhileSavingFailsItSaysSoAndSavesAsSoonAsItCan) {
    put(QStringLiteral("blocker"), "a file where the folder should be");
    Session run(path(QStringLiteral("blocker")));
    run.insert(QStringLiteral("x"));
    run.letWriteHappen();
    EXPECT_FALSE(run.keeper.saveProblem().isEmpty());
    ASSERT_TRUE(QFile::remove(path(QStringLiteral("blocker"))));
    run.mainQueue.advance(HistoryStore::retryDelay);
    run.mainQueue.settle();
    EXPECT_TRUE(run.keeper.saveProblem().isEmpty());
    EXPECT_EQ(decodedHistory(read(run.historyFile)).entries.size(), 1);
}

TEST_F(HistoryStoreTest, QuittingWritesWhatIsPending) {
    Session run(data.path());
    run.insert(QStringLiteral("x"));
    run.keeper.writeNow();
    EXPECT_EQ(decodedHistory(read(run.historyFile)).entries.size(), 1);
    ASSERT_TRUE(QFile::remove(run.historyFile));
    run.insert(QStringLiteral("y"));
    run.letWriteHappen();
    EXPECT_EQ(decodedHistory(read(run.historyFile)).entries.size(), 2);
}

TEST_F(HistoryStoreTest, LoadingDropsDuplicatesAndStrayExpiries) {
    const auto entry = [](const char* text, bool pinned, const char* tag) {
        return QJsonObject{
            {QStringLiteral("id"), QUuid::createUuid().toString(QUuid::WithoutBraces)},
            {QStringLiteral("text"), QString::fromLatin1(text)},
            {QStringLiteral("autoTags"), QJsonArray{QString::fromLatin1(tag)}},
            {QStringLiteral("copiedAt"), 1.5},
            {QStringLiteral("pinned"), pinned},
            {QStringLiteral("pinnedUntil"), 9e9},
            {QStringLiteral("usageCount"), 1},
        };
    };
    const QJsonArray entries{entry("a", false, "email"), entry("b", true, "gone"),
                             entry("a", true, "url")};
    put(file, QJsonDocument(QJsonObject{{QStringLiteral("entries"), entries}}).toJson());
    Session run(data.path());
    ASSERT_EQ(run.texts(), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(run.first().autoTags, QList{ClipboardAutoTag::email});
    EXPECT_FALSE(run.first().pinnedUntil.has_value());
    EXPECT_TRUE(run.history.recentClipboard().last().pinnedUntil.has_value());
    EXPECT_TRUE(run.history.recentClipboard().last().autoTags.isEmpty());
}

} // namespace quorvel::testing
