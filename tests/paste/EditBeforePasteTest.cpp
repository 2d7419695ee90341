#include "QtPrinting.h"

#include "paste/EditBeforePaste.h"
#include "paste/TextCounter.h"

#include <gtest/gtest.h>

namespace quorvel::testing {

TEST(EditBeforePaste, ChangesTheTextAsWasAskedFor) {
    const struct {
        const char16_t* text;
        EditCaseMode mode;
        bool trimCollapse;
        const char16_t* result;
    } cases[] = {
        {u"  a\n\n  b\tc  ", EditCaseMode::original, true, u"a b c"},
        {u"  a\n\n  b\tc  ", EditCaseMode::original, false, u"  a\n\n  b\tc  "},
        {u"\u00C4BC", EditCaseMode::lower, false, u"\u00E4bc"},
        {u"stra\u00DFe", EditCaseMode::upper, false, u"STRASSE"},
        {u" A\r\n\u00A0\u3000B ", EditCaseMode::lower, true, u"a b"},
        {u" \n\t", EditCaseMode::upper, true, u""},
    };
    for (const auto& c : cases) {
        const EditBeforePasteState state{
            .text = QString::fromUtf16(c.text), .caseMode = c.mode, .trimCollapse = c.trimCollapse};
        EXPECT_EQ(resultText(state), QString::fromUtf16(c.result)) << qPrintable(state.text);
    }
}

TEST(EditBeforePaste, KeepsTheOriginalFormsOnlyOfAnUnchangedTextAndWhenAsked) {
    EditRequest request;
    request.text = QStringLiteral("a b");
    request.items = {{{{QStringLiteral("text/html"), "<i>a b</i>"}}}};
    const struct {
        const char* text;
        EditCaseMode mode;
        bool trimCollapse;
        bool plain;
        bool keepsForms;
    } cases[] = {
        {"a b", EditCaseMode::original, false, false, true},
        {"a b", EditCaseMode::lower, true, false, true}, // neither changes this text
        {" a b", EditCaseMode::original, true, false, true},
        {"a b", EditCaseMode::original, false, true, false},
        {"a c", EditCaseMode::original, false, false, false},
        {"a b", EditCaseMode::upper, false, false, false},
    };
    for (const auto& c : cases) {
        const EditBeforePasteState state{.text = QString::fromLatin1(c.text),
                                         .caseMode = c.mode,
                                         .trimCollapse = c.trimCollapse,
                                         .pasteAsPlainText = c.plain};
        EXPECT_EQ(resultItems(request, state),
                  c.keepsForms ? request.items : QList{textItem(resultText(state))})
            << c.text << int(c.mode) << c.plain;
        EXPECT_EQ(resultItems({request.text}, state), QList{textItem(resultText(state))});
    }
}

TEST(EditBeforePaste, OffersTheOriginalFormsWhenThereAreOthersThanText) {
    const auto offered = [](const QStringList& types) {
        ClipboardSnapshotItem item;
        for (const QString& type : types)
            item.payloadByType.append({type, "x"});
        return editorState({QStringLiteral("x"), {item}}).supportsRichPaste;
    };
    EXPECT_FALSE(offered({QStringLiteral("UTF8_STRING"), QStringLiteral("TEXT"),
                          QStringLiteral("text/plain;charset=UTF-8"), QStringLiteral("TEXT/PLAIN"),
                          QStringLiteral("COMPOUND_TEXT")}));
    EXPECT_TRUE(offered({QStringLiteral("UTF8_STRING"), QStringLiteral("text/html")}));
    EXPECT_TRUE(offered({QStringLiteral("text/rtf")}));
    EXPECT_FALSE(editorState({QStringLiteral("x")}).supportsRichPaste);
}

TEST(TextCounter, CountsTheSameInWhateverBits) {
    const struct {
        QString text;
        TextCounts counts;
    } cases[] = {
        {{}, {0, 0, 0}},
        {QStringLiteral("one"), {3, 1, 1}},
        {QStringLiteral("one two\nthree\n"), {14, 3, 2}},
        {QStringLiteral("\n\n"), {2, 0, 2}},
        {QStringLiteral(
             "\u00E9e\u0301 \U0001F468\u200D\U0001F469\u200D\U0001F467 don't 3.14\n\u4E2D"),
         {17, 4, 2}},
        {QStringLiteral(" \u2014 ... "), {7, 0, 1}},
    };
    for (const auto& c : cases)
        for (const qsizetype bit : {1, 3, 1000}) {
            TextCounter counter(c.text);
            while (!counter.isDone())
                counter.advance(bit);
            EXPECT_EQ(counter.counts().characters, c.counts.characters) << qPrintable(c.text);
            EXPECT_EQ(counter.counts().words, c.counts.words) << qPrintable(c.text) << bit;
            EXPECT_EQ(counter.counts().lines, c.counts.lines) << qPrintable(c.text);
        }
}

TEST(TextCounter, GoesThroughAnEndlessWordInBits) {
    const QString smiles = QStringLiteral("\U0001F600").repeated(100'000);
    TextCounter counter(smiles);
    counter.advance(1001);
    EXPECT_FALSE(counter.isDone());
    while (!counter.isDone())
        counter.advance(1001);
    EXPECT_EQ(counter.counts().characters, 100'000);
}

} // namespace quorvel::testing
