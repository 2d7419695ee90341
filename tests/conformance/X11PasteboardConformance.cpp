#include "conformance/X11PasteboardOutside.h"
#include "support/DisplayProbe.h"
#include "support/QtPrinting.h"

#include <QBuffer>
#include <QImage>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

namespace quorvel {

namespace {

using namespace std::chrono_literals;
using Kind = SelectionAnswer::Kind;

const QString utf8String = QStringLiteral("UTF8_STRING");
const QString htmlType = QStringLiteral("text/html");

QByteArray repeated(const QByteArray& pattern, qsizetype size) {
    return pattern.repeated(size / pattern.size() + 1).left(size);
}

qint64 total(const QMap<QString, qint64>& counts) {
    return std::accumulate(counts.begin(), counts.end(), qint64(0));
}

QImage somePicture() {
    QImage image(5, 4, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(40 * x, 60 * y, 200));
    return image;
}

QByteArray encoded(const QImage& image, const char* format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return buffer.data();
}

/// What only the X11 selections ask of a pasteboard.
class X11PasteboardConformance : public testing::Test {
protected:
    bool textBecomes(const QString& text, std::chrono::milliseconds patience = usualPatience) {
        return waitUntil([&] { return pasteboard.string() == text; }, patience);
    }
    bool outsideGets(const QString& type, const QByteArray& bytes) {
        return waitUntil([&] { return outside.paste(type) == bytes; });
    }
    void write(const QString& text) { pasteboard.write({textItem(text)}); }

    X11PasteboardOutside outside;
    Pasteboard& pasteboard = outside.pasteboard();
};

TEST_F(X11PasteboardConformance, textComesFromTheBestTargetInItsEncoding) {
    struct Case {
        const char* what;
        ClipboardSnapshotItem item;
        QString text;
    };
    const auto utf16 = [](const QString& text) {
        return QByteArray(reinterpret_cast<const char*>(text.utf16()), 2 * text.size());
    };
    const std::vector<Case> cases{
        {"UTF-8", {{{utf8String, "gr\xc3\xbc\xc3\x9f"}}}, QStringLiteral("grüß")},
        {"Latin-1", {{{QStringLiteral("STRING"), "gr\xfc\xdf"}}}, QStringLiteral("grüß")},
        {"UTF-16",
         {{{QStringLiteral("text/plain;charset=utf-16"), utf16(QStringLiteral("\ufeffgrüß ✓"))}}},
         QStringLiteral("grüß ✓")},
        {"UTF-8 before Latin-1",
         {{{QStringLiteral("STRING"), "?"}, {utf8String, "\xe2\x9c\x93"}}},
         QStringLiteral("✓")},
        {"declared UTF-8 before plain",
         {{{QStringLiteral("text/plain"), "?"},
           {QStringLiteral("text/plain;charset=utf-8"), "\xe2\x9c\x93 declared"}}},
         QStringLiteral("✓ declared")},
        {"lines as they were written",
         {{{QStringLiteral("text/plain;charset=utf-8"), "a\r\nb"}, {utf8String, "a\nb"}}},
         QStringLiteral("a\nb")},
        {"plain text in UTF-8",
         {{{QStringLiteral("text/plain"), "\xd0\xb4\xd0\xb0"}}},
         QStringLiteral("да")},
        {"invalid UTF-8", {{{utf8String, "a\xff\xfe z"}}}, QStringLiteral("a\ufffd\ufffd z")},
        {"zero bytes at the end",
         {{{utf8String, QByteArray("terminated\0", 11)}}},
         QStringLiteral("terminated")},
        {"markup is no plain text", {{{QStringLiteral("text/html"), "<p>hello</p>"}}}, QString()},
    };
    for (const Case& testCase : cases) {
        SCOPED_TRACE(testCase.what);
        const qint64 before = pasteboard.changeCount();
        outside.copy(testCase.item);
        EXPECT_TRUE(waitUntil([&] { return pasteboard.changeCount() == before + 1; }));
        EXPECT_EQ(pasteboard.string(), testCase.text);
    }
}

TEST_F(X11PasteboardConformance, otherPicturesBecomePngAndTheirOwnBytesStay) {
    const QImage picture = somePicture();
    const QByteArray bmp = encoded(picture, "BMP");
    ASSERT_FALSE(bmp.isEmpty());
    outside.copy({{{QStringLiteral("image/bmp"), bmp}}});
    ASSERT_TRUE(waitUntil([&] { return !pasteboard.imagePng().isEmpty(); }));
    EXPECT_EQ(QImage::fromData(pasteboard.imagePng(), "PNG").convertToFormat(picture.format()),
              picture);
    EXPECT_EQ(outside.paste(QStringLiteral("image/bmp")), bmp);

    const QByteArray png = encoded(picture, "PNG");
    outside.copy({{{QStringLiteral("image/bmp"), bmp}, {pasteboardTypePng, png}}});
    ASSERT_TRUE(waitUntil([&] { return pasteboard.changeCount() == 2; }));
    EXPECT_EQ(pasteboard.imagePng(), png) << "the owner's own PNG comes first";

    outside.copy({{{QStringLiteral("image/bmp"), bmp.left(bmp.size() / 3)}, {utf8String, "cut"}}});
    ASSERT_TRUE(textBecomes(QStringLiteral("cut")));
}

TEST_F(X11PasteboardConformance, writtenTextIsOfferedUnderEveryUsualName) {
    write(QStringLiteral("grüß ✓"));
    const QByteArray utf8 = QStringLiteral("grüß ✓").toUtf8();
    ASSERT_TRUE(outsideGets(utf8String, utf8));
    const QStringList names{pasteboardTypeString, utf8String, QStringLiteral("text/plain"),
                            QStringLiteral("TEXT")};
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(outside.paste(name), utf8);
        const ProgramResult xclip = testDesktop().run(
            QStringLiteral("xclip"), {QStringLiteral("-selection"), QStringLiteral("clipboard"),
                                      QStringLiteral("-o"), QStringLiteral("-target"), name});
        EXPECT_EQ(xclip.output, utf8) << xclip.errors.constData();
    }
    EXPECT_EQ(outside.paste(QStringLiteral("STRING")), "gr\xfc\xdf ?");
    EXPECT_EQ(outside.request({QStringLiteral("STRING")}).first().type, "STRING");
    EXPECT_EQ(outside.request({utf8String}).first().type, "UTF8_STRING");
}

TEST_F(X11PasteboardConformance, questionsAboutTheContentAreAnswered) {
    pasteboard.write({{{{QStringLiteral("text/html"), "<b>x</b>"}, {pasteboardTypeString, "x"}}}});
    ASSERT_TRUE(outsideGets(utf8String, "x"));

    const QList<SelectionAnswer> alone =
        outside.request({QStringLiteral("TARGETS"), QStringLiteral("TIMESTAMP")});
    EXPECT_EQ(alone.at(0).type, "ATOM");
    const QByteArrayList targets = alone.at(0).bytes.split(' ');
    for (const char* expected :
         {"TARGETS", "TIMESTAMP", "MULTIPLE", "text/html", "text/plain;charset=utf-8",
          "UTF8_STRING", "text/plain", "TEXT", "STRING"})
        EXPECT_EQ(targets.count(expected), 1) << expected;
    EXPECT_EQ(alone.at(1).type, "INTEGER");
    EXPECT_LE(alone.at(1).bytes.toUInt(), outside.serverTime());
    EXPECT_GT(alone.at(1).bytes.toUInt(), 0U);

    const QList<SelectionAnswer> together =
        outside.request({utf8String, QStringLiteral("image/png"), QStringLiteral("text/html"),
                         QStringLiteral("TIMESTAMP")},
                        {QStringLiteral("--multiple")});
    EXPECT_EQ(together.at(0).bytes, "x");
    EXPECT_EQ(together.at(1).kind, Kind::refused);
    EXPECT_EQ(together.at(2).bytes, "<b>x</b>");
    EXPECT_EQ(together.at(3).bytes, alone.at(1).bytes);
    EXPECT_EQ(outside.request({QStringLiteral("image/png")}).first().kind, Kind::refused);
}

TEST_F(X11PasteboardConformance, largeContentTravelsInPiecesBothWays) {
    const qsizetype size = 5 * 1024 * 1024 + 7;
    const QByteArray incoming = repeated("incoming line of text\n", size);
    for (const QStringList& how :
         {QStringList(), QStringList{QStringLiteral("--incr"), QStringLiteral("1000000")},
          QStringList{QStringLiteral("--incr"), QStringLiteral("4099")}}) {
        SCOPED_TRACE(how.join(QLatin1Char(' ')).toStdString());
        const qint64 before = pasteboard.changeCount();
        outside.startOwner(
            how + QStringList{utf8String + QStringLiteral("=@") + outside.fileWith(incoming),
                              QStringLiteral("text/html=<i>small</i>")});
        ASSERT_TRUE(waitUntil([&] { return pasteboard.changeCount() == before + 1; }));
        EXPECT_TRUE(pasteboard.string().toUtf8() == incoming);
        EXPECT_EQ(pasteboard.items().value(0).payloadByType.value(1).data, "<i>small</i>");
    }

    const QByteArray outgoing = repeated("outgoing \xf0\x9f\x98\x80 bytes ", size);
    pasteboard.write({{{{QStringLiteral("application/x-large"), outgoing}}}});
    const QString large = QStringLiteral("application/x-large");
    ASSERT_TRUE(waitUntil([&] { return outside.request({large}).first().kind == Kind::received; }));
    const SelectionAnswer whole = outside.request({large}).first();
    EXPECT_TRUE(whole.inPieces);
    EXPECT_EQ(whole.type, "application/x-large");
    EXPECT_TRUE(whole.bytes == outgoing);
    const SelectionAnswer asOneOfSeveral =
        outside.request({large}, {QStringLiteral("--multiple")}).first();
    EXPECT_TRUE(asOneOfSeveral.bytes == outgoing);
}

TEST_F(X11PasteboardConformance, contentOutlivesItsOwnerWithAllItsTypes) {
    const ProgramResult copied = testDesktop().run(
        QStringLiteral("xclip"), {QStringLiteral("-selection"), QStringLiteral("clipboard")},
        "copied by a program that ends");
    ASSERT_EQ(copied.exitCode, 0);
    ASSERT_TRUE(textBecomes(QStringLiteral("copied by a program that ends")));
    const qint64 count = pasteboard.changeCount();
    testDesktop().endBackgroundPrograms();
    EXPECT_TRUE(waitUntil([] {
        return testDesktop()
                   .run(QStringLiteral("xclip"),
                        {QStringLiteral("-selection"), QStringLiteral("clipboard"),
                         QStringLiteral("-o")})
                   .output == "copied by a program that ends";
    }));
    EXPECT_EQ(pasteboard.changeCount(), count) << "keeping it is no change";

    outside.copy({{{utf8String, "two forms"}, {QStringLiteral("text/html"), "<u>two</u>"}}});
    ASSERT_TRUE(textBecomes(QStringLiteral("two forms")));
    outside.owner().kill();
    EXPECT_TRUE(outsideGets(utf8String, "two forms"));
    EXPECT_TRUE(outsideGets(QStringLiteral("text/html"), "<u>two</u>"));
}

TEST_F(X11PasteboardConformance, whatWasWipedOnPurposeStaysAway) {
    outside.copy({{{utf8String, "a password, wiped after a while"}}});
    ASSERT_TRUE(textBecomes(QStringLiteral("a password, wiped after a while")));
    outside.clear();
    ASSERT_TRUE(waitUntil([this] { return pasteboard.items().isEmpty(); }));
    outside.owner().kill();
    // The answer to a request proves that the pasteboard has seen what came before.
    outside.copy({{{utf8String, "next"}}});
    ASSERT_TRUE(textBecomes(QStringLiteral("next")));
    outside.clear();
    ASSERT_TRUE(waitUntil([this] { return pasteboard.items().isEmpty(); }));
    EXPECT_EQ(testDesktop().probe().owner("CLIPBOARD"), 0U);
}

TEST_F(X11PasteboardConformance, aSecretIsNeverAskedFor) {
    outside.copySecret("correct horse battery staple");
    ASSERT_TRUE(waitUntil([this] { return total(pasteboard.activity().skipped) == 1; }));
    ChildProgram& owner = outside.owner();
    outside.copy({{{utf8String, "next"}}});
    ASSERT_TRUE(textBecomes(QStringLiteral("next")));
    EXPECT_TRUE(owner.output().contains("request TARGETS "));
    EXPECT_TRUE(owner.output().contains("request x-kde-passwordManagerHint "));
    EXPECT_FALSE(owner.output().contains("request UTF8_STRING")) << owner.output().constData();

    outside.copySecret("gone with its owner");
    ASSERT_TRUE(waitUntil([this] { return total(pasteboard.activity().skipped) == 2; }));
    outside.owner().kill();
    ASSERT_TRUE(waitUntil([] { return testDesktop().probe().owner("CLIPBOARD") == 0; }));
    EXPECT_FALSE(outside.paste(utf8String)) << "a secret was kept alive";
}

struct BadOwner {
    const char* what;
    QStringList arguments;
};

const std::vector<BadOwner>& badOwners() {
    static const std::vector<BadOwner> table{
        {"silent", {QStringLiteral("--silent"), QStringLiteral("--text"), QStringLiteral("never")}},
        {"targets only",
         {QStringLiteral("--targets-only"), QStringLiteral("--text"), QStringLiteral("never")}},
        {"stalls in the middle",
         {QStringLiteral("--incr"), QStringLiteral("1000"), QStringLiteral("--stall-after"),
          QStringLiteral("5000"), QStringLiteral("--text"), QString(20000, u'x')}},
        {"stalls after the announcement of pieces",
         {QStringLiteral("--incr"), QStringLiteral("1000"), QStringLiteral("--stall-after"),
          QStringLiteral("0"), QStringLiteral("--text"), QString(20000, u'x')}},
        {"very slow",
         {QStringLiteral("--delay"), QStringLiteral("60000"), QStringLiteral("--text"),
          QStringLiteral("late")}},
    };
    return table;
}

TEST_F(X11PasteboardConformance, aHungOwnerDoesNotHoldUpTheNextCopy) {
    qint64 failures = 0;
    for (const BadOwner& bad : badOwners()) {
        SCOPED_TRACE(bad.what);
        const qint64 before = pasteboard.changeCount();
        ChildProgram& hung = outside.startOwner(bad.arguments);
        ASSERT_TRUE(waitUntil([&] { return hung.output().contains("request "); }));
        const QString next = QStringLiteral("copied while it hangs: ") + QLatin1String(bad.what);
        outside.copy({{{utf8String, next.toUtf8()}}});
        // Far less than the time after which a hung owner is given up.
        EXPECT_TRUE(textBecomes(next, 500ms));
        EXPECT_EQ(pasteboard.changeCount(), before + 1);
        EXPECT_EQ(total(pasteboard.activity().failed), ++failures);
    }
}

TEST(X11PasteboardConformanceLimits, aHungOwnerIsGivenUpWithItsReason) {
    TransferLimits limits;
    limits.stall = 150ms;
    X11PasteboardOutside outside(limits);
    Pasteboard& pasteboard = outside.pasteboard();
    qint64 failures = 0;
    for (const BadOwner& bad : badOwners()) {
        SCOPED_TRACE(bad.what);
        outside.startOwner(bad.arguments);
        ++failures;
        ASSERT_TRUE(waitUntil([&] { return total(pasteboard.activity().failed) == failures; }, 5s));
        EXPECT_TRUE(waitUntil([&] { return pasteboard.changeCount() == failures; }));
        EXPECT_TRUE(pasteboard.items().isEmpty()) << "half a content was taken for a whole one";
    }
    for (const QString& reason : pasteboard.activity().failed.keys())
        EXPECT_FALSE(reason.isEmpty());
    outside.copy({{{utf8String, "alive"}}});
    EXPECT_TRUE(waitUntil([&] { return pasteboard.string() == QStringLiteral("alive"); }));
}

TEST(X11PasteboardConformanceLimits, whatIsTooLargeIsRefusedWithItsReason) {
    TransferLimits limits;
    limits.mostBytesPerType = 100000;
    X11PasteboardOutside outside(limits);
    Pasteboard& pasteboard = outside.pasteboard();
    const QString large = outside.fileWith(QByteArray(200000, 'x'));
    for (const QStringList& how :
         {QStringList(), QStringList{QStringLiteral("--incr"), QStringLiteral("1000")}}) {
        SCOPED_TRACE(how.join(QLatin1Char(' ')).toStdString());
        outside.copy({{{utf8String, "what was there before"}}});
        ASSERT_TRUE(waitUntil([&] { return !pasteboard.items().isEmpty(); }));
        const qint64 before = total(pasteboard.activity().failed);
        outside.startOwner(how + QStringList{utf8String + QStringLiteral("=@") + large});
        EXPECT_TRUE(waitUntil([&] { return total(pasteboard.activity().failed) == before + 1; }));
        EXPECT_TRUE(waitUntil([&] { return pasteboard.items().isEmpty(); }));
    }
    outside.copy({{{utf8String, "small enough"}}});
    EXPECT_TRUE(waitUntil([&] { return pasteboard.string() == QStringLiteral("small enough"); }));
}

/// Microseconds from each copy of a burst to the first request for its text, sorted.
QList<qint64> fetchTimes(const QByteArray& output) {
    QList<qint64> times;
    for (const QByteArray& line : output.split('\n'))
        if (line.startsWith("fetched "))
            times.append(line.mid(8).toLongLong());
    std::sort(times.begin(), times.end());
    return times;
}

// On a busy machine a process may be put aside for longer than 5 ms. The owner therefore waits for
// the fetch where it has to, and what is asserted of the speed is the median.
TEST_F(X11PasteboardConformance, aThousandCopiesInQuickSuccessionAllArriveInOrder) {
    constexpr int copies = 1000;
    constexpr qint64 apart = 5000;
    QStringList seen;
    QObject::connect(&pasteboard, &Pasteboard::changed, &pasteboard,
                     [&] { seen.append(pasteboard.string()); });
    outside.startOwner({QStringLiteral("--burst"), QString::number(copies),
                        QStringLiteral("--every"), QStringLiteral("5"),
                        QStringLiteral("--await-fetch")});
    const QString last = QStringLiteral("burst %1").arg(copies);
    ASSERT_TRUE(waitUntil([&] { return seen.contains(last); }, 60s));
    QStringList expected;
    for (int i = 1; i <= copies; ++i)
        expected.append(QStringLiteral("burst %1").arg(i));
    EXPECT_EQ(seen.size(), copies);
    EXPECT_TRUE(seen == expected);
    EXPECT_EQ(total(pasteboard.activity().failed), 0);
    const QList<qint64> times = fetchTimes(outside.owner().output());
    ASSERT_EQ(times.size(), copies);
    EXPECT_LT(times.at(copies / 2), apart);
}

TEST_F(X11PasteboardConformance, aLateRequestGetsWhatWasThereAtItsTime) {
    write(QStringLiteral("pasted"));
    ASSERT_TRUE(outsideGets(utf8String, "pasted"));
    const quint32 time = outside.serverTime();
    ASSERT_TRUE(waitUntil([&] { return outside.serverTime() > time; }));
    write(QStringLiteral("put back"));
    ASSERT_TRUE(outsideGets(utf8String, "put back"));

    const QStringList atThatTime{QStringLiteral("--time"), QString::number(time)};
    EXPECT_EQ(outside.request({utf8String}, atThatTime).first().bytes, "pasted");
    EXPECT_EQ(outside.request({utf8String}, atThatTime + QStringList(QStringLiteral("--multiple")))
                  .first()
                  .bytes,
              "pasted");
    const QStringList now{QStringLiteral("--time"), QStringLiteral("0")};
    EXPECT_EQ(outside.request({utf8String}, now).first().bytes, "put back");
}

/// Whatever of it had come by then may be worth keeping; on the clipboard is what we wrote.
TEST_F(X11PasteboardConformance, whatArrivesAfterOurOwnWriteIsOlderThanIt) {
    const qint64 before = pasteboard.changeCount();
    QStringList late;
    QObject::connect(&pasteboard, &Pasteboard::arrivedLate, &pasteboard,
                     [&](const PasteboardContent& content) { late.append(content.text); });
    ChildProgram& owner =
        outside.startOwner({QStringLiteral("--withhold"), htmlType, QStringLiteral("--text"),
                            QStringLiteral("theirs"), QStringLiteral("text/html=<b>theirs</b>")});
    ASSERT_TRUE(waitUntil([&] { return owner.output().contains("request text/html"); }));
    write(QStringLiteral("ours"));
    ASSERT_TRUE(outsideGets(utf8String, "ours"));
    EXPECT_TRUE(waitUntil([&] { return late == QStringList(QStringLiteral("theirs")); }));
    EXPECT_EQ(pasteboard.string(), QStringLiteral("ours"));
    EXPECT_EQ(pasteboard.changeCount(), before + 1);
    outside.copy({{{utf8String, "theirs again"}}});
    EXPECT_TRUE(textBecomes(QStringLiteral("theirs again")));
}

TEST_F(X11PasteboardConformance, withNothingToOfferThePrimarySelectionStaysAsItIs) {
    outside.startOwner({QStringLiteral("--selection"), QStringLiteral("PRIMARY"),
                        QStringLiteral("--text"), QStringLiteral("selected")});
    auto& ours = static_cast<X11Pasteboard&>(pasteboard);
    const auto primary = [this] {
        return outside
            .request({utf8String}, {QStringLiteral("--selection"), QStringLiteral("PRIMARY")})
            .first()
            .bytes;
    };
    ours.offerAsPrimary();
    EXPECT_TRUE(waitUntil([&] { return ours.isSettled(); }));
    EXPECT_EQ(primary(), "selected");
    write(QStringLiteral("ours"));
    ours.offerAsPrimary();
    EXPECT_TRUE(waitUntil([&] { return primary() == "ours"; }));
}

TEST_F(X11PasteboardConformance, requestsAreServedWhileTheMainThreadIsBusy) {
    write(QStringLiteral("served by a thread of its own"));
    // `run` does not turn this program's event loop: whoever answers, it is not the main thread.
    ProgramResult read;
    for (int attempt = 0; attempt < 200 && read.output.isEmpty(); ++attempt)
        read = testDesktop().run(
            QStringLiteral("xclip"),
            {QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-o")});
    EXPECT_EQ(read.output, "served by a thread of its own");
}

TEST_F(X11PasteboardConformance, sixtyTypesAreAllTaken) {
    ClipboardSnapshotItem item;
    for (int i = 0; i < 60; ++i)
        item.payloadByType.append(
            {QStringLiteral("application/x-form-%1").arg(i), QByteArray::number(i).repeated(50)});
    outside.copy(item);
    ASSERT_TRUE(waitUntil([this] { return pasteboard.changeCount() == 1; }));
    EXPECT_EQ(pasteboard.items(), QList<ClipboardSnapshotItem>{item});
}

} // namespace

} // namespace quorvel
