#include "conformance/PasteboardOutside.h"
#include "conformance/X11PasteboardOutside.h"
#include "support/QtPrinting.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

#include <numeric>

namespace quorvel {

namespace {

const QString utf8String = QStringLiteral("UTF8_STRING");

ClipboardSnapshotItem copiedText(const QByteArray& text) {
    return {{{utf8String, text}}};
}

QByteArray somePng() {
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(qRgba(200, 100, 50, 255));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

qint64 total(const QMap<QString, qint64>& counts) {
    return std::accumulate(counts.begin(), counts.end(), qint64(0));
}

struct Adapter {
    const char* name;
    std::unique_ptr<PasteboardOutside> (*make)();
};

std::ostream& operator<<(std::ostream& stream, const Adapter& adapter) {
    return stream << adapter.name;
}

/// What every pasteboard must do, whatever stands behind it.
class PasteboardConformance : public testing::TestWithParam<Adapter> {
protected:
    PasteboardConformance()
        : outside(GetParam().make())
        , pasteboard(outside->pasteboard()) {
        QObject::connect(&pasteboard, &Pasteboard::changed, &pasteboard, [this] {
            ++announcements;
            seen.append(pasteboard.string());
        });
    }

    bool countReaches(qint64 count) {
        return waitUntil([&] { return pasteboard.changeCount() >= count; });
    }
    bool outsideGets(const QString& type, const QByteArray& bytes) {
        return waitUntil([&] { return outside->paste(type) == bytes; });
    }

    const std::unique_ptr<PasteboardOutside> outside;
    Pasteboard& pasteboard;
    int announcements = 0;
    QStringList seen; ///< The text at each announcement.
};

TEST_P(PasteboardConformance, everyRepresentationComesWithItsOwnBytesInTheOwnersOrder) {
    const ClipboardSnapshotItem item{{
        {QStringLiteral("text/html"), "<b>bold</b>"},
        {QStringLiteral("application/x-own;v=1"), QByteArray("\0\xff\x01 raw", 7)},
        {QStringLiteral("text/uri-list"), "file:///tmp/a%20b\r\n"},
        {QStringLiteral("STRING"), "b\xf6ld"},
        {utf8String, "b\xc3\xb6ld"},
        {QStringLiteral("text/plain"), "plain one"},
        {QStringLiteral("application/x-empty"), ""},
        {pasteboardTypePng, somePng()},
    }};
    const qint64 before = pasteboard.changeCount();
    outside->copy(item);
    ASSERT_TRUE(countReaches(before + 1));
    const QList<ClipboardSnapshotItem> items = pasteboard.items();
    ASSERT_EQ(items.size(), 1);
    const QList<PasteboardRepresentation>& payloads = items.first().payloadByType;
    ASSERT_EQ(payloads.size(), item.payloadByType.size());
    for (qsizetype i = 0; i < payloads.size(); ++i) {
        EXPECT_EQ(payloads.at(i).type, item.payloadByType.at(i).type) << "at " << i;
        EXPECT_EQ(payloads.at(i).data, item.payloadByType.at(i).data) << "at " << i;
    }
    EXPECT_EQ(pasteboard.string(), QStringLiteral("böld"));
    EXPECT_EQ(pasteboard.imagePng(), somePng());
}

TEST_P(PasteboardConformance, everyCopyMovesTheCountByOneAndIsAnnounced) {
    const qint64 before = pasteboard.changeCount();
    const QStringList texts{QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("two"),
                            QStringLiteral("three")};
    for (qsizetype i = 0; i < texts.size(); ++i) {
        outside->copy(copiedText(texts.at(i).toUtf8()));
        ASSERT_TRUE(countReaches(before + i + 1));
    }
    EXPECT_EQ(pasteboard.changeCount(), before + texts.size());
    EXPECT_EQ(announcements, texts.size());
    EXPECT_EQ(seen, texts);
    EXPECT_TRUE(pasteboard.announcesChanges());
}

TEST_P(PasteboardConformance, ownWriteMovesTheCountAtOnceAndReachesOtherPrograms) {
    const ClipboardSnapshotItem item{{
        {pasteboardTypeString, "written \xe2\x9c\x93"},
        {QStringLiteral("text/html"), "<i>written</i>"},
        {pasteboardTypePng, somePng()},
    }};
    const qint64 before = pasteboard.changeCount();
    EXPECT_EQ(pasteboard.write({item}), before + 1);
    EXPECT_EQ(announcements, 0) << "announced from inside the write";
    EXPECT_EQ(pasteboard.changeCount(), before + 1);
    EXPECT_EQ(pasteboard.items(), QList<ClipboardSnapshotItem>{item});
    EXPECT_EQ(pasteboard.string(), QStringLiteral("written ✓"));
    EXPECT_EQ(pasteboard.imagePng(), somePng());
    for (const PasteboardRepresentation& representation : item.payloadByType)
        EXPECT_TRUE(outsideGets(representation.type, representation.data))
            << representation.type.toStdString();
    EXPECT_TRUE(waitUntil([this] { return announcements == 1; }));
}

TEST_P(PasteboardConformance, ownWriteIsNotTakenForACopyOfAnotherProgram) {
    const qint64 before = pasteboard.changeCount();
    pasteboard.write({textItem(QStringLiteral("ours"))});
    ASSERT_TRUE(outsideGets(pasteboardTypeString, "ours"));
    outside->copy(copiedText("theirs"));
    ASSERT_TRUE(waitUntil([this] { return pasteboard.string() == QStringLiteral("theirs"); }));
    pasteboard.write({textItem(QStringLiteral("ours again"))});
    ASSERT_TRUE(outsideGets(pasteboardTypeString, "ours again"));
    outside->copy(copiedText("theirs again"));
    ASSERT_TRUE(
        waitUntil([this] { return pasteboard.string() == QStringLiteral("theirs again"); }));
    EXPECT_EQ(pasteboard.changeCount(), before + 4);
    EXPECT_EQ(seen, QStringList({QStringLiteral("ours"), QStringLiteral("theirs"),
                                 QStringLiteral("ours again"), QStringLiteral("theirs again")}));
}

TEST_P(PasteboardConformance, onlyOurOwnWriteIsReplacedNotACopyThatIsStillArriving) {
    const auto isThere = [this](const char* text) {
        return waitUntil([&] { return pasteboard.string() == QString::fromLatin1(text); });
    };
    outside->copy(copiedText("theirs"));
    ASSERT_TRUE(isThere("theirs"));
    EXPECT_FALSE(pasteboard.replaceOwnWrite({textItem(QStringLiteral("not ours"))}));
    const qint64 written = pasteboard.write({textItem(QStringLiteral("ours"))});
    EXPECT_EQ(pasteboard.replaceOwnWrite({textItem(QStringLiteral("put back"))}), written + 1);
    EXPECT_TRUE(outsideGets(pasteboardTypeString, "put back"));

    pasteboard.write({textItem(QStringLiteral("ours again"))});
    ASSERT_TRUE(outsideGets(pasteboardTypeString, "ours again"));
    outside->copySlowly(QStringLiteral("slow"));
    pasteboard.replaceOwnWrite({textItem(QStringLiteral("put back again"))});
    EXPECT_TRUE(isThere("slow"));
    EXPECT_EQ(outside->paste(pasteboard.items().value(0).payloadByType.value(0).type), "slow");
}

TEST_P(PasteboardConformance, writingNothingEmptiesIt) {
    const qint64 before = pasteboard.changeCount();
    outside->copy(copiedText("soon gone"));
    ASSERT_TRUE(countReaches(before + 1));
    EXPECT_EQ(pasteboard.write({}), before + 2);
    EXPECT_TRUE(pasteboard.items().isEmpty());
    EXPECT_TRUE(pasteboard.string().isEmpty());
    EXPECT_TRUE(pasteboard.imagePng().isEmpty());
    EXPECT_TRUE(waitUntil([this] { return !outside->paste(utf8String); }));
    outside->copy(copiedText("next"));
    ASSERT_TRUE(waitUntil([this] { return pasteboard.string() == QStringLiteral("next"); }));
    EXPECT_EQ(pasteboard.changeCount(), before + 3);
}

TEST_P(PasteboardConformance, anotherProgramMayEmptyIt) {
    const qint64 before = pasteboard.changeCount();
    outside->copy(copiedText("wiped by its owner"));
    ASSERT_TRUE(countReaches(before + 1));
    outside->clear();
    ASSERT_TRUE(countReaches(before + 2));
    EXPECT_TRUE(pasteboard.items().isEmpty());
    EXPECT_TRUE(pasteboard.string().isEmpty());
    EXPECT_FALSE(outside->paste(utf8String)) << "offered again although it was wiped on purpose";
}

TEST_P(PasteboardConformance, secretsAreNotThereAndAreCountedAsSkipped) {
    outside->copy(copiedText("harmless"));
    ASSERT_TRUE(waitUntil([this] { return pasteboard.string() == QStringLiteral("harmless"); }));
    outside->copySecret("correct horse");
    ASSERT_TRUE(waitUntil([this] { return total(pasteboard.activity().skipped) == 1; }));
    EXPECT_TRUE(waitUntil([this] { return pasteboard.items().isEmpty(); }));
    outside->copy(copiedText("harmless again"));
    ASSERT_TRUE(
        waitUntil([this] { return pasteboard.string() == QStringLiteral("harmless again"); }));
    EXPECT_FALSE(seen.contains(QStringLiteral("correct horse")));
    EXPECT_EQ(total(pasteboard.activity().skipped), 1);
    EXPECT_FALSE(pasteboard.activity().skipped.firstKey().isEmpty());
}

TEST_P(PasteboardConformance, whatDoesNotArriveIsCountedWithItsReasonAndLeavesItEmpty) {
    outside->copy(copiedText("before it"));
    ASSERT_TRUE(waitUntil([this] { return pasteboard.string() == QStringLiteral("before it"); }));
    const qint64 before = pasteboard.changeCount();
    outside->copyAndHang();
    ASSERT_TRUE(countReaches(before + 1));
    EXPECT_TRUE(pasteboard.items().isEmpty()) << "the earlier content is no longer there";
    EXPECT_TRUE(pasteboard.string().isEmpty());
    outside->copy(copiedText("after it"));
    ASSERT_TRUE(waitUntil([this] { return pasteboard.string() == QStringLiteral("after it"); }));
    EXPECT_EQ(pasteboard.changeCount(), before + 2);
    EXPECT_EQ(total(pasteboard.activity().failed), 1);
    EXPECT_FALSE(pasteboard.activity().failed.firstKey().isEmpty());
}

TEST_P(PasteboardConformance, brokenPicturesAreNoPictures) {
    const QByteArray png = somePng();
    const qint64 before = pasteboard.changeCount();
    outside->copy({{{pasteboardTypePng, "no picture at all"}, {utf8String, "but a text"}}});
    ASSERT_TRUE(countReaches(before + 1));
    EXPECT_TRUE(pasteboard.imagePng().isEmpty());
    EXPECT_EQ(pasteboard.string(), QStringLiteral("but a text"));
    EXPECT_EQ(pasteboard.items().first().payloadByType.size(), 2) << "its bytes stay as they are";
}

INSTANTIATE_TEST_SUITE_P(
    , PasteboardConformance,
    testing::Values(Adapter{"fake",
                            []() -> std::unique_ptr<PasteboardOutside> {
                                return std::make_unique<FakePasteboardOutside>();
                            }},
                    Adapter{"x11",
                            []() -> std::unique_ptr<PasteboardOutside> {
                                return std::make_unique<X11PasteboardOutside>();
                            }}),
    [](const auto& adapter) { return std::string(adapter.param.name); });

} // namespace

} // namespace quorvel
