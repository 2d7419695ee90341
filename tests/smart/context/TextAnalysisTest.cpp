#include "FakeTextServices.h"
#include "QtPrinting.h"

#include "platform/text/TextDataDetector.h"
#include "smart/context/CardGroups.h"
#include "smart/context/TextAnalyses.h"

#include <QRandomGenerator>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace quorvel::testing {

namespace {

const TextDataDetector& german() {
    static const TextDataDetector detector(Region::ofCountry(QStringLiteral("DE")));
    return detector;
}

/// What was found, each with its name, in the order of the fields.
QString found(const QString& text) {
    const TextAnalysisSnapshot s = analysedText(text, german());
    QStringList parts;
    const auto add = [&](const char* name, const std::optional<QString>& value) {
        if (value)
            parts.append(QLatin1String(name) + u'=' + *value);
    };
    add("command", s.terminalCommand);
    add("key", s.jiraIssueKey);
    add("request", s.pullRequestID);
    if (s.url)
        add("url", s.url->toString(QUrl::FullyEncoded));
    add("host", s.urlHost);
    add("last", s.urlLastSegment);
    for (const auto& [name, value] : s.urlQueryParameters)
        parts.append(u'?' + name + u'=' + value);
    add("phone", s.phone);
    add("digits", s.phoneDigits);
    add("country", s.phoneCountryCode);
    add("local", s.phoneLocalNumber);
    for (const TextRange& range : s.linkRanges)
        parts.append(QStringLiteral("@%1+%2").arg(range.start).arg(range.length));
    if (s.dotParts)
        add("dots", s.dotParts->join(u' '));
    add("card", s.cardDigits);
    if (s.mailLink)
        add("mail", s.mailLink->toString());
    return parts.join(u'|');
}

} // namespace

TEST(TextAnalysis, TakesApartWhatATextHolds) {
    const struct {
        const char16_t* text;
        const char16_t* found;
    } cases[]{
        {u"nothing here", u""},
        {u"https://shop.example.com/a/b%20c/?q=a%20b+c&q=%C3%A9&empty=&flag&x=1=2#top",
         u"url=https://shop.example.com/a/b%20c/?q=a%20b+c&q=%C3%A9&empty=&flag&x=1=2#top|"
         u"host=shop.example.com|last=b c|?q=a b c|?q=é|?empty=|?flag=|?x=1=2|@0+74|"
         u"dots=shop example com"},
        {u"https://a.example.com/?q=a%20b&bad=%FF%FE&cut=%4",
         u"url=https://a.example.com/?q=a%20b&bad=%FF%FE&cut=%254|host=a.example.com|?q=a b|"
         u"?bad=%FF%FE|?cut=%4|@0+48|dots=a example com"},
        {u"see https://bücher.de/straße and more",
         u"url=https://xn--bcher-kva.de/stra%C3%9Fe|host=bücher.de|last=straße|@4+24"},
        {u"https://xn--bcher-kva.de:8080", u"url=https://xn--bcher-kva.de:8080|"
                                           u"host=xn--bcher-kva.de|@0+29|dots=xn--bcher-kva de"},
        {u"http://[::1]:80/x", u"url=http://[::1]:80/x|host=::1|last=x|@0+17"},
        {u"jane@example.org or https://b.org",
         u"url=https://b.org|host=b.org|@0+16|@20+13|dots=example org|"
         u"mail=mailto:jane@example.org"},
        {u"030 901820", u"phone=+4930901820|digits=030901820|country=+49|local=030 901820"},
        {u"+49 (0)30 901820", u"phone=+4930901820|digits=4930901820|country=+49|local=030 901820"},
        {u"001 650-253-0000",
         u"phone=+16502530000|digits=16502530000|country=+1|local=(650) 253-0000"},
        {u"proj-42: see PR #17", u"key=PROJ-42|request=17"},
        {u"https://git.example.com/o/r/pull/9",
         u"request=9|url=https://git.example.com/o/r/pull/9|host=git.example.com|last=9|@0+34|"
         u"dots=git example com"},
        {u"  git push -f \n", u"command=git push -f"},
        {u"3782 822463 10005", u"card=378282246310005"},
        {u"com.example.App-Name", u"dots=com example App-Name"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(found(QString::fromUtf16(text)).toStdString(),
                  QString::fromUtf16(expected).toStdString());
}

TEST(TextAnalysis, DottedIdentifiersAreThoseOfTheirPattern) {
    static const QRegularExpression pattern(
        QStringLiteral("\\b([A-Za-z0-9_-]+(?:\\.[A-Za-z0-9_-]+)+)\\b"));
    const auto parts = [](const QString& text) {
        static const TextDataDetector detector(Region::ofCountry(QStringLiteral("US")));
        return analysedText(text, detector).dotParts.value_or(QStringList());
    };
    QRandomGenerator random(7);
    const QStringView letters(u"a.-_ b9.+");
    for (int round = 0; round < 3000; ++round) {
        QString text;
        for (int i = 0; i < 9; ++i)
            text += letters[random.bounded(int(letters.size()))];
        const QString match = pattern.match(text).captured(1);
        EXPECT_EQ(parts(text).join(u'.'), match) << qPrintable(text);
    }
    EXPECT_TRUE(parts(QString(QStringLiteral("a.")).repeated(5000) + u'a').isEmpty());
}

TEST(TextAnalysis, CardsAreGroupedAsTheirBrandPrintsThem) {
    const struct {
        const char* digits;
        const char* grouped;
    } cases[]{{"4111111111111111", "4111 1111 1111 1111"},
              {"378282246310005", "3782 822463 10005"},
              {"341111111111111", "3411 111111 11111"},
              {"36700102000000", "3670 010200 0000"},
              {"6212345678901232", "6212 3456 7890 1232"},
              {"6304000000000000000", "6304 0000 0000 0000 000"},
              {"4222222222222", "4222 2222 2222 2"}};
    for (const auto& [digits, grouped] : cases)
        EXPECT_EQ(groupedCard(QString::fromLatin1(digits)), QString::fromLatin1(grouped));
}

TEST(TextAnalysis, LargeTextsAreLookedAtAsFarAsItIsWorthIt) {
    FakeTextServices services;
    const TextAnalyses analyses(services);
    const QString card = QStringLiteral(" 4111 1111 1111 1111 ");
    const QString filling = QStringLiteral("word-1 a.-b ").repeated(40000);
    EXPECT_EQ(analyses.snapshot(filling + card + filling).cardDigits.value_or(QString()),
              QStringLiteral("4111111111111111"));
    QString query = QStringLiteral("https://a.example/?");
    for (int i = 0; i < 500; ++i)
        query += QStringLiteral("name%1=%2&").arg(i).arg(i);
    services.found = {{DataKind::url, 0, query.size(), query}};
    const auto parameters = analyses.snapshot(query).urlQueryParameters;
    ASSERT_EQ(parameters.size(), 500);
    EXPECT_EQ(parameters.last(), std::pair(QStringLiteral("name499"), QStringLiteral("499")));
    const QString link = QStringLiteral("https://a.example/whole");
    const QString words = QStringLiteral("many words ").repeated(2978); // ends near the bound
    ASSERT_LT(words.size() + 8, mostSearchedUnits);
    ASSERT_GT(words.size() + link.size(), mostSearchedUnits);
    EXPECT_TRUE(analysedText(link + u' ' + words + link, german()).url);
    EXPECT_FALSE(analysedText(words + link, german()).url) << "half a link is none";
    const int before = services.detections;
    EXPECT_FALSE(analyses.snapshot(card + QString(mostAnalysedUnits, u'x')).cardDigits);
    EXPECT_EQ(services.detections, before);
}

TEST(TextAnalysis, EachTextIsLookedAtOnceUntilOthersPushItOut) {
    FakeTextServices services;
    const TextAnalyses analyses(services);
    const auto isKept = [&](const QString& text) {
        const int before = services.detections;
        analyses.snapshot(text);
        return services.detections == before;
    };
    const QString first = QStringLiteral("first");
    EXPECT_FALSE(isKept(first));
    EXPECT_TRUE(isKept(first));
    for (int i = 1; i < TextAnalyses::mostTexts; ++i)
        analyses.snapshot(QString::number(i));
    EXPECT_TRUE(isKept(first));
    EXPECT_FALSE(isKept(QStringLiteral("one more")));
    EXPECT_TRUE(isKept(QStringLiteral("1"))) << "only the oldest had to go";
    EXPECT_FALSE(isKept(first));
    const QString large(mostAnalysedUnits, u'x');
    EXPECT_FALSE(isKept(large));
    EXPECT_FALSE(isKept(large)) << "it would take more memory than all may";
    EXPECT_TRUE(isKept(first));
    for (int i = 0; i < 8; ++i)
        analyses.snapshot(QString(100'000, QChar(u'a' + i)));
    EXPECT_FALSE(isKept(first)) << "large texts push out more than one";
    EXPECT_TRUE(isKept(QString(100'000, u'h')));
}

} // namespace quorvel::testing
