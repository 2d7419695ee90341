#include "ui/MenuText.h"

#include "support/QtPrinting.h"
#include "ui/MenuKeys.h"
#include "ui/MenuPlacement.h"

#include <QApplication>
#include <QTextDocument>

#include <gtest/gtest.h>

namespace quorvel {

namespace {

TEST(MenuTitle, aLongTitleKeepsItsEndsWithinTheWidth) {
    const QFontMetrics metrics(QApplication::font());
    constexpr int width = 300;
    for (const QString& filling :
         {QStringLiteral("W"), QStringLiteral("\u6f22"), QStringLiteral("i ")}) {
        const QString title =
            menuTitle(QStringLiteral("start%1end").arg(filling.repeated(100)), metrics, width);
        EXPECT_LE(metrics.horizontalAdvance(title), width) << title.toStdString();
        EXPECT_TRUE(title.startsWith(QStringLiteral("start"))) << title.toStdString();
        EXPECT_TRUE(title.endsWith(QStringLiteral("end"))) << title.toStdString();
    }
    EXPECT_LE(metrics.horizontalAdvance(menuTitle(QString(1'000'000, u'W'), metrics, width)),
              width);
    const QString shortenedBefore = QString(29, u'W') + QStringLiteral("\u2026WWWWWWWend");
    const QString title = menuTitle(shortenedBefore, metrics, width);
    EXPECT_EQ(title.count(QChar(0x2026)), 1) << title.toStdString();
    EXPECT_TRUE(title.endsWith(QStringLiteral("WWWWWWWend"))) << title.toStdString();
    EXPECT_LE(metrics.horizontalAdvance(title), width);
}

QString shownText(const QString& toolTip) {
    QTextDocument document;
    document.setHtml(toolTipMarkup(toolTip));
    return document.toPlainText();
}

TEST(MenuToolTip, showsTheTextLiterally) {
    for (const QString& text : {QStringLiteral("<b>not bold</b> & <img src='x'>"),
                                QStringLiteral("two\n    lines"), QStringLiteral("a  b\tc")})
        EXPECT_EQ(shownText(text), text);
    EXPECT_EQ(shownText(QStringLiteral("a\r\nb\rc")), QStringLiteral("a\nb\nc"));
    EXPECT_EQ(toolTipMarkup(QStringLiteral(" \n ")), QString());
}

TEST(MenuToolTip, endsLongTextsWithAnEllipsis) {
    const QString manyLines = shownText(QStringLiteral("line\n").repeated(1000));
    EXPECT_EQ(manyLines.count(u'\n'), 24);
    EXPECT_TRUE(manyLines.endsWith(QStringLiteral("line\u2026")));
    const QString emoji = shownText(u'x' + QStringLiteral("\U0001F600").repeated(5000));
    EXPECT_EQ(emoji.size(), 1 + 2 * 749 + 1);
    EXPECT_TRUE(emoji.isValidUtf16());
    const QString whole = QStringLiteral("line\n").repeated(24) + QStringLiteral("last");
    EXPECT_EQ(shownText(whole), whole);
}

TEST(MenuToolTip, itsLastLineIsTheDetail) {
    QTextDocument document;
    const QString detail = QStringLiteral("from <A> & B");
    document.setHtml(toolTipMarkup(QStringLiteral("line\n").repeated(1000), detail));
    EXPECT_TRUE(document.toPlainText().endsWith(QStringLiteral("\u2026\n") + detail));
    document.setHtml(toolTipMarkup(QString(), detail));
    EXPECT_EQ(document.toPlainText(), detail);
}

TEST(MenuText, isWrappedLiterallyAndCutAfterItsLastLine) {
    constexpr int width = 200;
    const QFont font = QApplication::font();
    const auto wrapped = [&](const QString& text) { return wrappedText(text, font, width, 3); };
    EXPECT_EQ(wrapped(QStringLiteral("a & <b>\r\n\nc")), QStringLiteral("a & <b>\n\nc"));
    EXPECT_EQ(wrapped(QStringLiteral("a\nb\nc\nd")), QStringLiteral("a\nb\nc\u2026"));
    for (const QString& text : {QStringLiteral("some words "), QStringLiteral("\u6f22"),
                                QStringLiteral("W"), QStringLiteral("\U0001F600")}) {
        const QStringList lines = wrapped(text.repeated(100'000)).split(u'\n');
        EXPECT_EQ(lines.size(), 3);
        EXPECT_TRUE(lines.constLast().endsWith(QChar(0x2026)));
        for (const QString& line : lines)
            EXPECT_LE(QFontMetrics(font).horizontalAdvance(line.trimmed()), width);
    }
}

TEST(MenuWidth, followsTheWidestTitleThatIsARow) {
    const QFontMetrics metrics(QApplication::font());
    const auto measured = [&](const QList<MenuItem>& items) {
        return measuredMenuWidth(items, metrics, 520);
    };
    const QString title = QStringLiteral("W").repeated(25);
    const MenuItem text{.kind = MenuItemKind::textBox, .title = title};
    EXPECT_EQ(measured({}), 244);
    EXPECT_EQ(measured({MenuItem::separator(), text}), 244);
    EXPECT_EQ(measured({MenuItem::disabled(title)}), metrics.horizontalAdvance(title) + 64);
}

TEST(MenuKeys, namesTheKeysInTheLanguageOfTheTable) {
    const KeyEquivalent all{QStringLiteral("k"), Modifiers::fromInt(modifierMask)};
    struct Case {
        KeyEquivalent keys;
        const char* language;
        QString expected;
    };
    const Case cases[] = {
        {{QStringLiteral("1"), Modifier::command}, "en", QStringLiteral("Super+1")},
        {all, "en", QStringLiteral("Super+Ctrl+Alt+Shift+K")},
        {all, "de", QStringLiteral("Super+Strg+Alt+Umschalt+K")},
        {{QString(), Modifier::command}, "en", QString()},
    };
    for (const Case& one : cases)
        EXPECT_EQ(keyEquivalentText(one.keys,
                                    StringTable::forLanguage(QString::fromLatin1(one.language))),
                  one.expected);
}

TEST(MenuPlacement, isBesideThePointerAndWhollyWithinTheLimits) {
    const QRect limits(0, 0, 1000, 800);
    struct Case {
        const char* name;
        QSize size;
        QPoint pointer;
        Qt::LayoutDirection direction;
        QPoint expected;
        bool above;
    };
    const Case cases[] = {
        {"below", {200, 300}, {400, 100}, Qt::LeftToRight, {400, 100}, false},
        {"right to left", {200, 300}, {400, 100}, Qt::RightToLeft, {200, 100}, false},
        {"right to left at the left", {200, 300}, {100, 100}, Qt::RightToLeft, {100, 100}, false},
        {"at the right", {200, 300}, {900, 100}, Qt::LeftToRight, {700, 100}, false},
        {"above", {200, 300}, {400, 700}, Qt::LeftToRight, {400, 400}, true},
        {"fits just below", {200, 300}, {400, 500}, Qt::LeftToRight, {400, 500}, false},
        {"neither above nor below", {200, 600}, {400, 400}, Qt::LeftToRight, {400, 200}, false},
        {"larger than the screen", {2000, 2000}, {400, 400}, Qt::LeftToRight, {0, 0}, false},
    };
    for (const Case& one : cases) {
        const MenuPlace place = placedAtPointer(one.size, one.pointer, limits, one.direction);
        EXPECT_EQ(place.topLeft, one.expected) << one.name;
        EXPECT_EQ(place.isAbovePointer, one.above) << one.name;
    }
}

} // namespace

} // namespace quorvel
