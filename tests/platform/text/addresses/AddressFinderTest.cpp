#include "platform/text/addresses/AddressFinder.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

QList<DataMatch> matches(const QString& text) {
    QList<DataMatch> found;
    AddressFinder().find(Tokens(text), found);
    return found;
}

/// What is found, as it stands in the text, each in angle brackets.
std::string marked(const char* utf8) {
    const QString text = QString::fromUtf8(utf8);
    std::string result;
    for (const DataMatch& match : matches(text)) {
        EXPECT_EQ(match.kind, DataKind::address);
        result += '<' + text.mid(match.start, match.length).toStdString() + '>';
    }
    return result;
}

TEST(AddressFinder, FindsWholeTexts) {
    const char* const texts[] = {
        "1600 Pennsylvania Avenue NW, Washington, DC 20500",
        "123 Main St Apt 4B\nSpringfield IL 62704",
        "P.O. Box 1234, Austin, TX 78701",
        "One Microsoft Way\nRedmond, WA 98052",
        "5678 County Road 12, Boulder, CO 80301",
        "123 main street, springfield, il 62704",
        "221B Baker Street, London NW1 6XE",
        "Flat 3, 10 Downing Street\nLondon\nSW1A 2AA",
        "1 Lansdowne Road\nBallsbridge\nDublin 4",
        "111 Wellington St, Ottawa, ON K1A 0A9",
        "Unit 5/12 George St, Sydney NSW 2000, Australia",
        "Hauptstraße 5",
        "Am Markt 1\n28195 Bremen",
        "Unter den Linden 77, 10117 Berlin",
        "Straße des 17. Juni 135, 10623 Berlin",
        "Stephansplatz 3/12, A-1010 Wien",
        "Postfach 12 34 56, 50667 Köln",
        "15 bis, avenue Foch - 69006 Lyon",
        "BP 1234, 75001 Paris Cedex 08",
        "Rue de la Loi 16, 1000 Bruxelles, Belgique",
        "C/ Mayor 3, 2º B, 28013 Madrid",
        "Calle 72 # 10-34, Bogotá, Colombia",
        "Av. Paulista, 1578 - Bela Vista, São Paulo - SP, 01310-200",
        "Piazza del Duomo, 1\n20122 Milano MI",
        "V.le Europa 12, 50126 Firenze FI",
        "Prinsengracht 263-267, 1016 GV Amsterdam",
        "ul. Marszałkowska 10/12 m. 5, 00-001 Warszawa",
        "Drottninggatan 5, 111 51 Stockholm",
        "Kossuth Lajos utca 5, 1053 Budapest",
        "125009, Россия, г. Москва, ул. Тверская, д. 7",
        "пр-т Ленина, 54, Екатеринбург",
        "〒100-0001 東京都千代田区千代田1-1",
        "大阪府大阪市北区梅田3丁目1-3",
        "1-1 Chiyoda, Chiyoda-ku, Tokyo 100-0001",
        "北京市朝阳区建国路88号",
        "서울특별시 강남구 테헤란로 152",
        "15 شارع طلعت حرب، القاهرة",
    };
    for (const char* text : texts)
        EXPECT_EQ(marked(text), '<' + std::string(text) + '>');
}

TEST(AddressFinder, LeavesOutWhatStandsAround) {
    const std::pair<const char*, const char*> cases[] = {
        {"Acme Inc.\n123 Elm Street, Suite 400\nSan Francisco, CA 94105\nTel. 555",
         "<123 Elm Street, Suite 400\nSan Francisco, CA 94105>"},
        {"Industriestraße 7 | 70565 Stuttgart\nTel. +49 711 123456",
         "<Industriestraße 7 | 70565 Stuttgart>"},
        {"12 Oak Lane\n\nBoston, MA 02108", "<12 Oak Lane>"},
        {"Ich wohne in der Goethestr. 14 in München.", "<Goethestr. 14>"},
        {"住所は東京都新宿区西新宿2-8-1です。", "<東京都新宿区西新宿2-8-1>"},
        {"From 12 High Street, Oxford to 45 Mill Lane, Cambridge",
         "<12 High Street, Oxford><45 Mill Lane, Cambridge>"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(marked(text), expected);
}

TEST(AddressFinder, FindsNoneInOtherTexts) {
    const char* const texts[] = {
        "",
        "5 Star Hotel",
        "24 Hour Drive",
        "10 Downing",
        "3 Way Street Fight",
        "The 5th Avenue",
        "Main St",
        "New York, NY",
        "Boston, MA 02108",
        "SW1A 2AA",
        "100 meters drive",
        "5 March Street Festival",
        "In 2008 Wall Street collapsed",
        "The speed limit is 30 on Main Street",
        "Meeting at 10:30 on Park Avenue",
        "Route 66",
        "Highway 61 Revisited",
        "3 Doors Down, Austin, TX",
        "Windows 10, 64 Bit, 16 GB RAM",
        "Platz 3 im Rennen",
        "Treffen Hauptstraße 5 Minuten",
        "Via Skype um 10",
        "via 3 hops",
        "rue 12 fois",
        "3 cours de maths",
        "avenue Q 2024 tour",
        "DE89 3704 0044 0532 0130 00",
        "2024-05-03 12:34:56 INFO Main started 5 Worker threads",
        "C:\\Users\\5\\Main Street\\a.txt",
        "for (int i = 0; i < 10; i++) { road[i] = 5; }",
        "Статья 10, часть 2",
        "東京都は2024年に1-2月",
        "浦和 2-1 鹿島",
        "国道5号",
        "서울에서 부산으로 5시간",
    };
    for (const char* text : texts)
        EXPECT_EQ(marked(text), "") << text;
}

TEST(AddressFinder, GivesTheAddressInOneLine) {
    const QList<DataMatch> found =
        matches(QStringLiteral("To:\r\n10  Downing Street,\r\nLondon\r\n SW1A 2AA"));
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found.first().value, QStringLiteral("10 Downing Street, London, SW1A 2AA"));
}

} // namespace
} // namespace quorvel
