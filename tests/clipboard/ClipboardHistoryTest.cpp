#include "CoreRig.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace quorvel::testing {

class ClipboardHistoryTest : public ::testing::Test, protected CoreRig {
protected:
    void insertMany(int count) {
        for (int i = 1; i <= count; ++i)
            insert(QString::number(i));
    }
};

TEST_F(ClipboardHistoryTest, TheSameTextIsOneClipOnTopWithItsPastKept) {
    insert(QStringLiteral("a"));
    insert(QStringLiteral("b"));
    const QUuid old = idOf(QStringLiteral("a"));
    history.bump(*history.entry(old));
    history.togglePin(old);
    insert(QStringLiteral("b"));
    insert(QStringLiteral("a"));
    EXPECT_EQ(texts(), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_NE(first().id, old);
    EXPECT_EQ(first().usageCount, 1);
    EXPECT_TRUE(first().pinned);
}

TEST_F(ClipboardHistoryTest, PicturesAreTheSameByTheirBytes) {
    const auto picture = [&](const QByteArray& png) { history.insert({.imagePNGData = png}); };
    picture("one");
    picture("two");
    picture("one");
    EXPECT_EQ(history.recentClipboard().size(), 2);
    // SHA-256 of "abc": FIPS 180-4, example 1.
    EXPECT_EQ(
        identityKey(QStringLiteral("text"), "abc"),
        QStringLiteral("image:ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"));
}

TEST_F(ClipboardHistoryTest, TrimmingKeepsTheNewestAndThePinned) {
    insertMany(12);
    history.togglePin(idOf(QStringLiteral("2")));
    preferences.set(keys::smartFolderPinnedClipboardTexts,
                    QJsonObject{{QStringLiteral("links"), QJsonArray{QStringLiteral("3")}}});
    insertMany(0);
    for (int i = 13; i <= 30; ++i)
        insert(QString::number(i));
    EXPECT_EQ(history.recentClipboard().size(), 22);
    EXPECT_EQ(texts().mid(18), QStringList({QStringLiteral("12"), QStringLiteral("11"),
                                            QStringLiteral("3"), QStringLiteral("2")}));
}

TEST_F(ClipboardHistoryTest, ATimedPinLapsesAtTheNextCapture) {
    insert(QStringLiteral("hour"));
    insert(QStringLiteral("forever"));
    history.pinFor(idOf(QStringLiteral("hour")), 1h);
    history.togglePin(idOf(QStringLiteral("forever")));
    clock.advance(3599s);
    insert(QStringLiteral("x"));
    EXPECT_TRUE(history.entry(idOf(QStringLiteral("hour")))->pinned);
    clock.advance(2s);
    insert(QStringLiteral("y"));
    EXPECT_FALSE(history.entry(idOf(QStringLiteral("hour")))->pinned);
    EXPECT_TRUE(history.entry(idOf(QStringLiteral("forever")))->pinned);
    insert(QStringLiteral("hour"));
    EXPECT_FALSE(first().pinned) << "the lapsed pin must not come back";
}

TEST_F(ClipboardHistoryTest, APinIsRememberedForATextThatComesBack) {
    insert(QStringLiteral("a"));
    history.pinFor(first().id, 1h);
    ClipboardHistory later(preferences, clock);
    later.insert({.text = QStringLiteral("a")});
    EXPECT_TRUE(later.recentClipboard().first().pinned);
    EXPECT_TRUE(later.recentClipboard().first().pinnedUntil.has_value());
    later.togglePin(later.recentClipboard().first().id);
    EXPECT_FALSE(later.recentClipboard().first().pinnedUntil.has_value());
    EXPECT_TRUE(preferences.record(keys::pinnedClipboardTexts).toArray().isEmpty());
}

TEST_F(ClipboardHistoryTest, AUseCountsAndMovesToTheTop) {
    insertMany(3);
    const RecentClipboardEntry oldest = *history.entry(idOf(QStringLiteral("1")));
    history.bump(oldest);
    EXPECT_EQ(texts().first(), QStringLiteral("1"));
    EXPECT_EQ(first().usageCount, 1);
    history.remove(oldest.id);
    insert(QStringLiteral("1")); // Copied anew under another id.
    history.bump(oldest);
    EXPECT_EQ(texts(), QStringList({QStringLiteral("1"), QStringLiteral("3"), QStringLiteral("2")}))
        << "only a folder had it";
    EXPECT_EQ(first().id, oldest.id);
    EXPECT_EQ(first().usageCount, 1);
}

TEST_F(ClipboardHistoryTest, MemoryIsBoundedOldestFirst) {
    const QByteArray big(ClipboardHistory::mostPayloadBytes / 2, 'x');
    for (const char* text : {"a", "b", "c"})
        history.insert({.text = QString::fromLatin1(text),
                        .payloadItems = {{{{QStringLiteral("image/x-big"), big}}}}});
    EXPECT_TRUE(history.recentClipboard().at(2).payloadItems.isEmpty());
    EXPECT_FALSE(history.recentClipboard().at(1).payloadItems.isEmpty());

    const QByteArray picture(ClipboardHistory::mostContentBytes / 2 + 1, 'p');
    history.insert({.imagePNGData = picture});
    history.insert({.text = QStringLiteral("z"), .imagePNGData = picture + 'q'});
    EXPECT_EQ(history.recentClipboard().size(), 1);
}

} // namespace quorvel::testing
