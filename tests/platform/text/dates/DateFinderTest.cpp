#include "platform/text/dates/DateFinder.h"

#include "foundation/Folding.h"
#include "platform/text/dates/DateWordTable.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

/// The text with what is found in brackets, its value behind a bar.
QString marked(const QString& text, bool dayFirst) {
    QList<DataMatch> found;
    DateFinder(Region{QStringLiteral("US"), dayFirst}).find(Tokens(text), found);
    QString result;
    qsizetype past = 0;
    for (const DataMatch& match : found) {
        result += text.mid(past, match.start - past) + u'⟦' + text.mid(match.start, match.length) +
                  u'|' + match.value + u'⟧';
        past = match.end();
    }
    return result + text.mid(past);
}

QString unmarked(const QString& marked) {
    QString text;
    bool isValue = false;
    for (const QChar c : marked) {
        isValue = (isValue || c == u'|') && c != u'⟧';
        if (!isValue && c != u'⟦' && c != u'⟧')
            text += c;
    }
    return text;
}

void expectFound(const QStringList& cases, bool dayFirst = false) {
    for (const QString& expected : cases)
        EXPECT_EQ(marked(unmarked(expected), dayFirst).toStdString(), expected.toStdString());
}

TEST(DateFinder, NumericDates) {
    expectFound({
        QStringLiteral("⟦2024-03-05|2024-03-05⟧"),
        QStringLiteral("at ⟦2024-03-05T14:00:00Z|2024-03-05T14:00:00Z⟧ it"),
        QStringLiteral("⟦2024-03-05 14:00:00.123+02:00|2024-03-05T14:00:00.123+02:00⟧"),
        QStringLiteral("⟦20240305T140000Z|2024-03-05T14:00:00Z⟧"),
        QStringLiteral("⟦2024-W10-2|2024-W10-2⟧"),
        QStringLiteral("due ⟦2024/03/05|2024-03-05⟧."),
        QStringLiteral(
            "[⟦05/Mar/2024:14:00:00 +0100|2024-03-05T14:00:00+01:00⟧] \"GET / HTTP/1.1\" 200"),
        QStringLiteral("⟦Mar  5 14:00:01|⟧ host sshd[1234]: accepted"),
        QStringLiteral("⟦Tue Mar  5 14:00:01 2024|2024-03-05T14:00:01⟧"),
        QStringLiteral("Date: ⟦Tue, 5 Mar 2024 14:30:00 -0500 (EST)|2024-03-05T14:30:00-05:00⟧"),
        QStringLiteral("⟦3/5/2024|2024-03-05⟧"),
        QStringLiteral("⟦31/12/2024|2024-12-31⟧"),
        QStringLiteral("⟦03/05/69 14:00|1969-03-05T14:00⟧"),
        QStringLiteral("⟦８/１５/２０２３|2023-08-15⟧"),
        QStringLiteral("date=⟦2024-03-05|2024-03-05⟧"),
    });
}

TEST(DateFinder, DatesOfDayFirstRegions) {
    expectFound(
        {
            QStringLiteral("⟦3/5/2024|2024-05-03⟧"),
            QStringLiteral("⟦05.03.2024|2024-03-05⟧"),
            QStringLiteral("Termin ⟦5.3.24|2024-03-05⟧"),
            QStringLiteral("am ⟦24. 12. 2024|2024-12-24⟧"),
            QStringLiteral("Wir treffen uns am ⟦5.3.|⟧ bei mir"),
            QStringLiteral("Urlaub vom ⟦1.–5.3.|⟧"),
            QStringLiteral("⟦Di 5.3.|⟧, ⟦Mi., 6.3., 10 Uhr|⟧"),
            QStringLiteral("Öffnungszeiten: ⟦Mo–Fr 9–17 Uhr|⟧"),
            QStringLiteral("Python 3.9.18 und Node 18.12.10"),
        },
        true);
}

TEST(DateFinder, NamedDates) {
    expectFound({
        QStringLiteral("⟦5 March 2024|2024-03-05⟧, ⟦March 5th, 2024|2024-03-05⟧"),
        QStringLiteral("el ⟦5 de marzo de 2024|2024-03-05⟧"),
        QStringLiteral("am ⟦5. März 2024|2024-03-05⟧"),
        QStringLiteral("⟦le 1er mars|⟧"),
        QStringLiteral("⟦5 марта 2024 г.|2024-03-05⟧"),
        QStringLiteral("⟦5 marca 2024 r.|2024-03-05⟧"),
        QStringLiteral("⟦5 maart 2024|2024-03-05⟧"),
        QStringLiteral("⟦5-Mar-2024|2024-03-05⟧, ⟦05MAR2024|2024-03-05⟧"),
        QStringLiteral("due ⟦3/15|⟧, ⟦Fri 3/16|⟧"),
        QStringLiteral("in ⟦March 2024|2024-03⟧ or ⟦December '23|2023-12⟧"),
        QStringLiteral("⟦the 5th of March|⟧, on ⟦may 5|⟧"),
        QStringLiteral("⟦Tuesday, 5 March|⟧"),
        QStringLiteral("⟦Dienstag, den 5. März|⟧"),
        QStringLiteral("⟦segunda-feira, 5 de março|⟧"),
        QStringLiteral("⟦24 грудня 2024 року|2024-12-24⟧"),
        QStringLiteral("⟦5 مارس 2024|2024-03-05⟧"),
        QStringLiteral("⟦2024年3月5日|2024-03-05⟧"),
        QStringLiteral("締切は⟦令和元年5月1日|2019-05-01⟧です"),
        QStringLiteral("⟦二〇二四年三月五日|2024-03-05⟧"),
        QStringLiteral("⟦2024년 3월 5일|2024-03-05⟧에 만나요"),
        QStringLiteral("⟦2024/03/05(火)|2024-03-05⟧"),
        QStringLiteral("See you on ⟦Friday|⟧! el ⟦viernes|⟧ в ⟦пятницу|⟧ ⟦金曜日|⟧に行く"),
    });
}

TEST(DateFinder, RelativeDates) {
    expectFound({
        QStringLiteral("⟦tomorrow morning|⟧, ⟦the day after tomorrow|⟧"),
        QStringLiteral("⟦Tomorrow (Friday) at 10|⟧, ⟦today, 5 March 2024|2024-03-05⟧"),
        QStringLiteral("⟦next Friday|⟧ or ⟦last week|⟧, ⟦this month|⟧"),
        QStringLiteral("⟦in two weeks|⟧, ⟦3 days ago|⟧, ⟦an hour from now|⟧"),
        QStringLiteral("⟦end of the month|⟧ and ⟦next week Friday|⟧"),
        QStringLiteral("⟦mañana a las 10|⟧, ⟦pasado mañana|⟧, ⟦hace 3 días|⟧, ⟦el mes pasado|⟧"),
        QStringLiteral("⟦morgen früh|⟧, ⟦nächsten Freitag|⟧, ⟦vor 3 Tagen|⟧, ⟦Ende März|⟧"),
        QStringLiteral(
            "⟦demain à 8h|⟧, ⟦la semaine prochaine|⟧, ⟦il y a 3 jours|⟧, ⟦l'an dernier|⟧"),
        QStringLiteral("⟦hier soir|⟧ je suis rentré"),
        QStringLiteral("⟦aujourd’hui|⟧ and ⟦yesterday|⟧'s news"),
        QStringLiteral("⟦завтра в 10|⟧, ⟦через две недели|⟧, ⟦неделю назад|⟧"),
        QStringLiteral("⟦明日|⟧の会議、⟦来週の金曜日|⟧、⟦3日後|⟧に"),
        QStringLiteral("⟦明天下午3点|⟧开会，⟦下周五|⟧见"),
        QStringLiteral("⟦내일 오후 3시|⟧에, ⟦다음 주 금요일|⟧"),
        QStringLiteral(
            "⟦tre giorni fa|⟧, ⟦drie dagen geleden|⟧, ⟦za dwa tygodnie|⟧, ⟦daqui a 3 dias|⟧"),
    });
}

TEST(DateFinder, Times) {
    expectFound({
        QStringLiteral("⟦14:30|T14:30⟧, ⟦2:30 pm|T14:30⟧, ⟦5 p.m.|T17:00⟧ at ⟦noon|T12:00⟧"),
        QStringLiteral("à ⟦14h30|T14:30⟧, um ⟦14 Uhr|T14:00⟧, ⟦14.30 Uhr|T14:30⟧"),
        QStringLiteral("⟦午後3時|T15:00⟧と⟦15時30分|T15:30⟧"),
        QStringLiteral("⟦14:30:05 UTC|T14:30:05Z⟧, ⟦14:30 GMT+2|T14:30+02:00⟧, ⟦9 am PST|T09:00⟧"),
        QStringLiteral("⟦5 March 2024 at 14:30 CET|2024-03-05T14:30⟧"),
        QStringLiteral("⟦tomorrow at 5pm|⟧, ⟦10 Uhr am Freitag|⟧"),
        QStringLiteral("⟦half past seven|T07:30⟧, ⟦halb acht|T07:30⟧, ⟦12 noon|T12:00⟧"),
        QStringLiteral("в ⟦10 утра|T10:00⟧, a las ⟦10 de la noche|T22:00⟧"),
        QStringLiteral("⟦10:30 on 5 March 2024|2024-03-05T10:30⟧"),
        QStringLiteral("⟦5 marzo 2024 ore 14.30|2024-03-05T14:30⟧"),
        QStringLiteral("⟦7. marts 2024 kl. 14.30|2024-03-07T14:30⟧"),
    });
}

TEST(DateFinder, Ranges) {
    expectFound({
        QStringLiteral("⟦3–5 March 2024|2024-03-03/2024-03-05⟧"),
        QStringLiteral("⟦from 3 to 5 March|⟧ and ⟦March 5-7|⟧"),
        QStringLiteral("⟦1.-5. April|⟧, ⟦du 3 au 5 mars|⟧, ⟦с 3 по 5 марта|⟧"),
        QStringLiteral("⟦Mon-Fri 9:00-17:00|⟧"),
        QStringLiteral("⟦Fri 5 March, 10:00–11:30|⟧"),
        QStringLiteral("⟦2024-03-05 – 2024-03-08|2024-03-05/2024-03-08⟧"),
        QStringLiteral("⟦2024-03-05T10:00/2024-03-05T11:00|2024-03-05T10:00/2024-03-05T11:00⟧"),
        QStringLiteral("⟦5 March – 7 April 2024|2024-03-05/2024-04-07⟧"),
        QStringLiteral(
            "⟦10-11 am|T10:00/T11:00⟧, ⟦2–4 pm|T14:00/T16:00⟧, ⟦from 9am to 5pm|T09:00/T17:00⟧"),
        QStringLiteral("⟦3月5日(火) 14:00〜16:00|⟧"),
    });
}

TEST(DateFinder, LeavesOtherNumbersAlone) {
    expectFound({
        QStringLiteral("version 1.2.3 and v2024.1.2 and 10.0.1, 3.5.2024.1"),
        QStringLiteral("192.168.10.12 and 10.0.0.1:8080, fe80::10:30"),
        QStringLiteral("1/2 cup, 3/4 inch, 16:9 or 4:3, ratio 10:15"),
        QStringLiteral("12.50 and 1.234,56 € or $3.99, score 3:2, 21-19"),
        QStringLiteral("+49 30 901820, 555-12-3456, 4111 1111 1111 1111"),
        QStringLiteral("ISBN 978-3-16-148410-0, part 12-34-56, AB12-03-04"),
        QStringLiteral("John 3:16, 52.5200, 13.4050, 1920x1080"),
        QStringLiteral("00:1A:2B:3C:4D:5E and 10:20:30:40:50:60"),
        QStringLiteral("550e8400-e29b-41d4-a716-446655440000"),
        QStringLiteral("2024, 2019-2024, 25:00, 12:60"),
        QStringLiteral("2024-02-30 and 45/67/2024"),
        QStringLiteral(
            "/var/log/2024/03/05/app.log https://example.com/2024/03/05/post?d=2024-03-05"),
        QStringLiteral("report_2024-03-05.pdf, main.cpp:10:30: error, a[1:20]"),
        QStringLiteral("gnupg>=1.4.18, cut by 1/2, it takes over 24 hours"),
        QStringLiteral("2 hours, 90 min, 3 weeks, 35 years old"),
        QStringLiteral("3時間かかる。5分間。10日間。"),
    });
}

TEST(DateFinder, LeavesOrdinaryWordsAlone) {
    expectFound({
        QStringLiteral("May I go? We march on. The second half, sat down, sun shines"),
        QStringLiteral("I may 5 times go; you can set 5 alarms and go out 3 times"),
        QStringLiteral("So 10 people came. Do at 5 what you did"),
        QStringLiteral("el mar es azul, por la mañana"),
        QStringLiteral("Hier ist das Haus, hier wohnen wir. Guten Morgen zusammen"),
        QStringLiteral("Der Mai ist gekommen. Am 3. Tag"),
        QStringLiteral("mars est une planète; le mois de mai"),
        QStringLiteral("is this an error in 3 steps"),
        QStringLiteral("foo.today() today.js friday_job Black Friday"),
    });
}

TEST(DateFinder, StaysWithinTheTextWhateverItHolds) {
    const QStringList pieces{
        QStringLiteral("Mon "),     QStringLiteral("1-"),   QStringLiteral("5."),
        QStringLiteral("3:0"),      QStringLiteral("in a"), QStringLiteral("2024年3"),
        QStringLiteral("the day "), QString(QChar(0xD800)), QString(QChar(0)),
        QStringLiteral("〇"),       QStringLiteral("a'"),   QStringLiteral("10:00-("),
    };
    for (const QString& piece : pieces) {
        const QString text = piece.repeated(6000);
        QList<DataMatch> found;
        DateFinder({}).find(Tokens(text), found);
        qsizetype past = 0;
        for (const DataMatch& match : found) {
            ASSERT_GE(match.start, past) << piece.toStdString();
            ASSERT_GT(match.length, 0) << piece.toStdString();
            past = match.end();
        }
        EXPECT_LE(past, text.size()) << piece.toStdString();
    }
}

TEST(DateWords, AreFoldedSoThatTheyCanBeFound) {
    constexpr char16_t firstEastern = 0x3040;
    for (const WordRow& row : dateWordRows)
        for (const QString& word : QString::fromUtf16(row.words).split(u' '))
            if (word.front().unicode() < firstEastern) {
                EXPECT_EQ(folded(word).toStdString(), word.toStdString());
            }
}

} // namespace
} // namespace quorvel
