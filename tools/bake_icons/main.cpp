/// Renders one SVG drawing to PNG files of several sizes, so that the program needs no SVG code.
/// Usage: bake_icons mask|colour DRAWING.svg OUTPUT_PREFIX PIXELS...
/// Writes OUTPUT_PREFIX-PIXELS.png: a mask keeps only how opaque each pixel is, as a shade of grey.

#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QStringList>
#include <QSvgRenderer>

#include <cstdio>

namespace {

QImage rendered(QSvgRenderer& drawing, int pixels) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    return image;
}

QImage opacityOf(const QImage& image) {
    QImage mask = image.convertToFormat(QImage::Format_Alpha8);
    mask.reinterpretAsFormat(QImage::Format_Grayscale8);
    return mask;
}

int fail(const QString& message) {
    std::fprintf(stderr, "bake_icons: %s\n", qPrintable(message));
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const QStringList kinds{QStringLiteral("mask"), QStringLiteral("colour")};
    if (arguments.size() < 4 || !kinds.contains(arguments[0]))
        return fail(QStringLiteral("usage: bake_icons mask|colour DRAWING.svg PREFIX PIXELS..."));
    QSvgRenderer drawing(arguments[1]);
    if (!drawing.isValid())
        return fail(QStringLiteral("not a drawing: ") + arguments[1]);
    for (const QString& size : arguments.mid(3)) {
        const int pixels = size.toInt();
        if (pixels <= 0)
            return fail(QStringLiteral("not a size: ") + size);
        const QImage image = rendered(drawing, pixels);
        const QString path = QStringLiteral("%1-%2.png").arg(arguments[2], size);
        if (!(arguments[0] == kinds[0] ? opacityOf(image) : image).save(path, "PNG"))
            return fail(QStringLiteral("cannot write ") + path);
    }
    return 0;
}
