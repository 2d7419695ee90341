#include "ui/Icons.h"
#include "ui/ThumbnailDecoder.h"
#include "ui/Thumbnails.h"
#include "ui/UiDesktop.h"

#include <QApplication>
#include <QBuffer>
#include <QPalette>
#include <QtEndian>

#include <gtest/gtest.h>

namespace quorvel {

namespace {

constexpr QSize box{52, 34};

QByteArray png(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "PNG"));
    return bytes;
}

quint32 checksum(const QByteArray& bytes) {
    quint32 sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ (sum & 1 ? 0xEDB88320 : 0);
    }
    return ~sum;
}

/// A valid header that announces another size than the data has.
QByteArray lying(QByteArray bytes, quint32 width, quint32 height) {
    constexpr qsizetype type = 12, sizes = 16, sum = 29;
    qToBigEndian(width, bytes.data() + sizes);
    qToBigEndian(height, bytes.data() + sizes + 4);
    qToBigEndian(checksum(bytes.mid(type, sum - type)), bytes.data() + sum);
    return bytes;
}

TEST(ThumbnailDecoder, fitsPicturesIntoTheBoxAndNeverEnlargesThem) {
    EXPECT_EQ(decodeThumbnail(png({520, 340}), box).size(), QSize(52, 34));
    EXPECT_EQ(decodeThumbnail(png({1000, 100}), box).size(), QSize(52, 5));
    EXPECT_EQ(decodeThumbnail(png({20, 10}), box).size(), QSize(20, 10));
    EXPECT_EQ(decodeThumbnail(png({9000, 2}), box).size(), QSize(52, 1));
    EXPECT_EQ(decodeThumbnail(png({520, 340}), box).pixelColor(10, 10), QColor(Qt::red));
}

TEST(ThumbnailDecoder, refusesWhatIsNoPictureOrFarTooLarge) {
    const QByteArray good = png({100, 100});
    ASSERT_FALSE(decodeThumbnail(lying(good, 100, 100), box).isNull());
    EXPECT_TRUE(decodeThumbnail({}, box).isNull());
    EXPECT_TRUE(decodeThumbnail("no picture", box).isNull());
    EXPECT_TRUE(decodeThumbnail(good.left(60), box).isNull());
    EXPECT_TRUE(decodeThumbnail(lying(good, 60'000, 60'000), box).isNull());
    EXPECT_TRUE(decodeThumbnail(lying(good, 0x7FFFFFFF, 0x7FFFFFFF), box).isNull());
    EXPECT_TRUE(decodeThumbnail(lying(good, 0x7FFFFFFF, 1), box).isNull());
    // Another format under the name of this one.
    EXPECT_TRUE(decodeThumbnail("P1\n1 1\n1\n", box).isNull());
}

TEST(Thumbnails, areDecodedOnceAndThenAtHand) {
    Thumbnails thumbnails;
    int decoded = 0;
    QObject::connect(&thumbnails, &Thumbnails::decoded, &thumbnails, [&] { ++decoded; });
    const QByteArray picture = png({100, 100});
    const QByteArray broken = lying(picture, 60'000, 60'000);
    EXPECT_TRUE(thumbnails.icon(picture).isNull());
    EXPECT_TRUE(thumbnails.icon(picture).isNull());
    EXPECT_TRUE(thumbnails.icon(broken).isNull());
    ASSERT_TRUE(waitUntil([&] { return decoded == 2; }));
    const QByteArray copy(picture.constData(), picture.size()); // The same content elsewhere.
    EXPECT_FALSE(thumbnails.icon(copy).isNull());
    EXPECT_TRUE(thumbnails.icon(broken).isNull());
    EXPECT_TRUE(thumbnails.icon(png({101, 100})).isNull());
    EXPECT_TRUE(waitUntil([&] { return decoded == 3; })); // Only the new one.
}

TEST(Thumbnails, areKeptHoweverLargeTheyAreOnThisScreen) {
    Thumbnails previews({.box = QSize(1700, 1400)});
    int decoded = 0;
    QObject::connect(&previews, &Thumbnails::decoded, &previews, [&] { ++decoded; });
    const QList<QByteArray> pictures{png({1700, 1400}), png({1700, 1399})};
    for (const QByteArray& picture : pictures)
        EXPECT_TRUE(previews.icon(picture).isNull());
    ASSERT_TRUE(waitUntil([&] { return decoded == 2; }));
    for (const QByteArray& picture : pictures)
        EXPECT_FALSE(previews.icon(picture).isNull());
}

/// The most opaque colour of the icon's picture.
QColor inkOf(const QIcon& icon, int pixels, QIcon::Mode mode) {
    const QImage image = icon.pixmap(QSize(pixels, pixels), 1, mode).toImage();
    EXPECT_EQ(image.size(), QSize(pixels, pixels));
    QColor ink(0, 0, 0, 0);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).alpha() > ink.alpha())
                ink = image.pixelColor(x, y);
    return ink;
}

TEST(Icons, haveADrawingForEachSymbol) {
    const Icons icons;
    for (const char* name : {"ellipsis.circle", "plus.circle", "trophy", "gearshape",
                             "rectangle.portrait.and.arrow.right", "doc.on.clipboard",
                             "doc.on.clipboard.fill", "list.clipboard", "text.bubble",
                             "bolt.circle", "photo", "doc.text", "pin", "magnifyingglass"})
        EXPECT_GT(inkOf(icons.symbol(QString::fromLatin1(name)), 18, QIcon::Normal).alpha(), 200)
            << name;
    EXPECT_TRUE(icons.symbol(QStringLiteral("no.such.symbol")).isNull());
    EXPECT_TRUE(icons.symbol(QString()).isNull());
    for (const int pixels : {16, 22, 24, 32, 48, 64, 128})
        EXPECT_EQ(inkOf(icons.application(), pixels, QIcon::Normal).alpha(), 255) << pixels;
}

TEST(Icons, takeTheColourOfTextAtAnySizeAndFollowThePalette) {
    const Icons icons;
    const QIcon pin = icons.symbol(QStringLiteral("pin"));
    const QPalette original = QApplication::palette();
    for (const QColor& text : {QColor(10, 20, 30), QColor(230, 220, 210)}) {
        QPalette palette = original;
        palette.setColor(QPalette::Text, text);
        palette.setColor(QPalette::HighlightedText, Qt::green);
        QApplication::setPalette(palette);
        for (const int pixels : {18, 27, 96, 200})
            EXPECT_EQ(inkOf(pin, pixels, QIcon::Normal).rgb(), text.rgb()) << pixels;
        EXPECT_EQ(inkOf(pin, 18, QIcon::Selected).rgb(), QColor(Qt::green).rgb());
    }
    QApplication::setPalette(original);
}

} // namespace

} // namespace quorvel
