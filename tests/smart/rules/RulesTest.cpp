#include "smart/rules/ColorValue.h"
#include "smart/rules/JsonText.h"
#include "smart/rules/NumberPatterns.h"
#include "smart/rules/References.h"
#include "smart/rules/TerminalCommand.h"
#include "smart/rules/TextShapes.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QUrl>

#include <gtest/gtest.h>

namespace quorvel {
namespace {

bool hasUUIDAnywhere(const QString& text) {
    return hasUUID(text, [](qsizetype, qsizetype) { return true; });
}

struct Rule {
    const char* name;
    bool (*holds)(const QString&);
    QStringList yes;
    QStringList no;
};

const QList<Rule>& rules() {
    using L = QStringList;
    const auto s = [](const char16_t* text) { return QString::fromUtf16(text); };
    static const QList<Rule> all{
        {"single value", [](const QString& t) { return isLikelySingleValue(t); },
         L{s(u"a b c"), s(u"  padded \t"), s(u"eight short words are still one value here"),
           QString(300, u'x')},
         L{s(u""), s(u" \n"), s(u"a\nb"), s(u"nine short words are not one single value here"),
           s(u"four words with ") + QString(90, u'x') + s(u" end")}},
        {"issue key", [](const QString& t) { return !issueKey(caseNormalized(t)).isEmpty(); },
         L{s(u"proj-42"), s(u"see AB-1."), s(u"straße-12"), s(u"A1B2-12345678"), s(u"x PROJ-7-8")},
         L{s(u"A-1"), s(u"1AB-1"), s(u"ABCDEFGHIJK-1"), s(u"AB-123456789"), s(u"AB-12x"),
           s(u"_AB-12"), s(u"AB -12"), s(u"étude-x")}},
        {"pull request",
         [](const QString& t) { return !pullRequestNumber(t, std::nullopt).isEmpty(); },
         L{s(u"PR #42"), s(u"mr 7"), s(u"Pr#1"), s(u"the PR\u00A012")},
         L{s(u"PR"), s(u"PRs 12"), s(u"xPR 12"), s(u"PR #"), s(u"PR 12a")}},
        {"card", [](const QString& t) { return !cardDigits(t).isEmpty(); },
         L{s(u"4111 1111 1111 1111"), s(u"card:4111-1111-1111-1111."), s(u"4222222222222")},
         L{s(u"4111 1111 1111 1112"), s(u"411111111111"), s(u"4111  1111 1111 1111"),
           s(u"x4111111111111111"), QString(40, u'0')}},
        {"IBAN", [](const QString& t) { return hasIBANCandidate(caseNormalized(t)); },
         L{s(u"GB82WEST12345698765432"), s(u"de89370400440532013000")},
         L{s(u"GB82 WEST 1234 5698 7654 32"), s(u"GB82WEST12345"), s(u"G882WEST12345698765432"),
           s(u"GB82WEST12345698765432_")}},
        {"IPv4", [](const QString& t) { return hasIPv4Candidate(t); },
         L{s(u"10.0.0.25"), s(u"at 192.168.1.1:80"), s(u"1.2.3.4.5"), s(u"0.0.0.0")},
         L{s(u"256.1.1.1"), s(u"10.0.0.256"), s(u"1.2.3"), s(u"01.2.3.4"), s(u"v1.2.3.4")}},
        {"UUID", hasUUIDAnywhere,
         L{s(u"550e8400-e29b-41d4-a716-446655440000"),
           s(u"{550E8400-E29B-41D4-A716-446655440000}")},
         L{s(u"550e8400-e29b-41d4-a716-44665544000"), s(u"x550e8400-e29b-41d4-a716-446655440000"),
           s(u"550e8400e29b41d4a716446655440000")}},
        {"JSON", [](const QString& t) { return isJsonDocument(t); },
         L{s(u"[1, 2]"), s(u" {\"a\": [true, null, -1.5e+3, \"\\u00e9\\ud83d\\ude00\"]} \n"),
           s(u"[]"), s(u"{}"), QString(512, u'[') + QString(512, u']')},
         L{s(u"42"), s(u"\"x\""), s(u"[1,]"), s(u"{\"a\":1,}"), s(u"[01]"), s(u"[1] x"),
           s(u"{a:1}"), s(u"[\"\t\"]"), s(u"[\"\\"), s(u"[\"\\u12"), s(u"[nul]"), s(u"[1"),
           s(u"[}"), QString(513, u'[') + QString(513, u']'), QString(100000, u'['),
           QStringLiteral("[\"") + QChar(0xD800) + QStringLiteral("\"]")}},
        {"code", [](const QString& t) { return looksLikeCode(t); },
         L{s(u"a;"), s(u"x => y"), s(u"let x"), s(u"</p>"), s(u"<br/>"), s(u"import os")},
         L{s(u"plain words"), s(u"outlet"), s(u"a < b / c = d"), s(u"let")}},
        {"colour", [](const QString& t) { return colorValue(t).has_value(); },
         L{s(u"#FFF"), s(u"#ff8800cc;"), s(u"rgba(0, 0, 0, .5)"), s(u"RGB( 1 ,2,3 )"),
           s(u"#GGG #abcd")},
         L{s(u"#GGG"), s(u"#12345"), s(u"rgb(1,2)"), s(u"rgba(1,2,3,2)"), s(u"xrgb(1,2,3)"),
           s(u"#fffx"), s(u"rgba(1,2,3,.)")}},
        {"name shape", [](const QString& t) { return isWrittenLikePersonName(t); },
         L{s(u"John Smith"), s(u"Jean-Paul D'Arc"), s(u"Мария Иванова"), s(u" Ana Li! ")},
         L{s(u"John"), s(u"john smith"), s(u"JOHN SMITH"), s(u"John Smith 2"), s(u"A. Smith"),
           s(u"John\nSmith"), s(u"A B C D E"), s(u"John Smi_th")}},
        {"command", [](const QString& t) { return looksLikeTerminalCommand(t); },
         L{s(u"ls -la"), s(u"FOO=1 npm run build"), s(u"cat ~/notes.txt"), s(u"./build.sh"),
           s(u"sudo git status"), s(u"echo a > b"), s(u"GREP -R x")},
         L{s(u"ls -la."), s(u"git frobnicate"), s(u"make all"), s(u"Hello there"), s(u"git"),
           s(u"open ."), s(u"curl https://x.y"), s(u"ls a, b"), s(u"ls -lä"), s(u"sudo")}},
    };
    return all;
}

TEST(Rules, HoldForWhatTheyAreMeantForAndNothingElse) {
    for (const Rule& rule : rules()) {
        for (const QString& text : rule.yes)
            EXPECT_TRUE(rule.holds(text)) << rule.name << ": " << text.left(60).toStdString();
        for (const QString& text : rule.no)
            EXPECT_FALSE(rule.holds(text)) << rule.name << ": " << text.left(60).toStdString();
    }
}

/// The hand-written matchers against the expressions they stand for, on random texts made of what
/// the expressions look at.
TEST(Rules, AgreeWithTheExpressionsTheyStandFor) {
    struct Pair {
        const char* pattern;
        bool (*holds)(const QString&);
    };
    const Pair pairs[] = {
        {R"(\b([A-Z][A-Z0-9]{1,9}\-\d{1,8})\b)",
         [](const QString& t) { return !issueKey(caseNormalized(t)).isEmpty(); }},
        {R"(\b[A-Z]{2}\d{2}[A-Z0-9]{10,30}\b)",
         [](const QString& t) { return hasIBANCandidate(caseNormalized(t)); }},
        {R"(\b(?:(?:25[0-5]|2[0-4]\d|1\d\d|[1-9]?\d)\.){3}(?:25[0-5]|2[0-4]\d|1\d\d|[1-9]?\d)\b)",
         [](const QString& t) { return hasIPv4Candidate(t); }},
        {R"((?i)\b(?:PR|MR)\s*#?(\d+)\b)",
         [](const QString& t) { return !pullRequestNumber(t, std::nullopt).isEmpty(); }},
        {R"((?i)#([0-9a-f]{3}|[0-9a-f]{4}|[0-9a-f]{6}|[0-9a-f]{8})\b)",
         [](const QString& t) { return t.contains(u'#') && colorValue(t).has_value(); }},
    };
    const QStringList pieces{
        QStringLiteral("PR"),      QStringLiteral("mr"),        QStringLiteral("#"),
        QStringLiteral("-"),       QStringLiteral("."),         QStringLiteral(" "),
        QStringLiteral("_"),       QStringLiteral("7"),         QStringLiteral("25"),
        QStringLiteral("0"),       QStringLiteral("199"),       QStringLiteral("AB"),
        QStringLiteral("ab"),      QStringLiteral("é"),         QStringLiteral("DE89"),
        QStringLiteral("1234567"), QStringLiteral("12.10.0.7"), QStringLiteral("٣"),
        QStringLiteral("fff")};
    QRandomGenerator random(20240305);
    for (const Pair& pair : pairs) {
        const QRegularExpression expression(QString::fromLatin1(pair.pattern),
                                            QRegularExpression::UseUnicodePropertiesOption);
        const bool isUpper = QByteArray(pair.pattern).startsWith("\\b") &&
                             QByteArray(pair.pattern).contains("[A-Z]");
        int matched = 0;
        for (int i = 0; i < 20000; ++i) {
            QString text;
            for (int j = random.bounded(1, 9); j > 0; --j)
                text += pieces.at(random.bounded(int(pieces.size())));
            const bool expected = expression.match(isUpper ? text.toUpper() : text).hasMatch();
            ASSERT_EQ(pair.holds(text), expected) << pair.pattern << "\n" << text.toStdString();
            matched += expected ? 1 : 0;
        }
        EXPECT_GT(matched, 20) << pair.pattern;
    }
}

TEST(Rules, ExtractWhatActionsNeed) {
    EXPECT_EQ(issueKey(u"fix proj-123 now"), QStringLiteral("PROJ-123"));
    EXPECT_EQ(cardDigits(u"no 4111-1111-1111-1111!"), QStringLiteral("4111111111111111"));
    EXPECT_EQ(pullRequestNumber(u"x", QUrl(QStringLiteral("https://h/o/r/pull/12/files"))),
              QStringLiteral("12"));
    EXPECT_EQ(pullRequestNumber(u"x", QUrl(QStringLiteral("https://h/g/-/merge_requests/7"))),
              QStringLiteral("7"));
    EXPECT_EQ(colorValue(u"#f80"), (ColorValue{255, 136, 0, 1.0}));
    EXPECT_EQ(colorValue(u"rgba(999, 0, 0, .5)"), (ColorValue{255, 0, 0, 0.5}));
    EXPECT_DOUBLE_EQ(colorValue(u"#00000080")->alpha, 128 / 255.0);
}

TEST(Rules, KnowTheTrackers) {
    const auto isTracker = [](const char* url, bool hasKey = false) {
        return isIssueTrackerLink(QUrl(QString::fromLatin1(url)), hasKey);
    };
    EXPECT_TRUE(isTracker("https://github.com/o/r/issues/12"));
    EXPECT_TRUE(isTracker("https://gitlab.com/g/p/-/issues/3"));
    EXPECT_TRUE(isTracker("https://linear.app/team/issue/ENG-1"));
    EXPECT_TRUE(isTracker("https://youtrack.example.org/articles/X"));
    EXPECT_TRUE(isTracker("https://DEV.azure.com/o/p/_workitems/edit/5"));
    EXPECT_TRUE(isTracker("https://acme.atlassian.net/jira/software/issue/5"));
    EXPECT_TRUE(isTracker("https://jira.example.org/browse/AB-1", true));
    EXPECT_FALSE(isTracker("https://jira.example.org/browse/", false));
    EXPECT_FALSE(isTracker("https://github.com/o/r/pull/12"));
    EXPECT_FALSE(isTracker("mailto:a@github.com/issues/"));
}

} // namespace
} // namespace quorvel
