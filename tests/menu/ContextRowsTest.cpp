#include "MenuOutline.h"
#include "MenuRig.h"

#include "menu/ClipItems.h"
#include "menu/ContextRows.h"
#include "paste/ContextPastePayload.h"

#include <QStringBuilder>

#include <gtest/gtest.h>

namespace quorvel::testing {

class ContextRowsTest : public ::testing::Test, protected MenuRig {
protected:
    QList<MenuItem> items(const QString& text) const {
        return contextItems(text, MenuBuild(content, state));
    }
    std::string outline(const QString& text) const { return outlineOf(items(text)).toStdString(); }

    /// The detector finds the whole text to be this.
    void take(DataKind kind, const QString& text, const QString& value = {}) {
        textServices.found = {{kind, 0, text.size(), value.isEmpty() ? text : value}};
    }
    static QString about(const MenuItem& item) {
        const auto payload = ContextPastePayload::fromText(item.representedObject);
        return payload ? payload->value : item.representedObject;
    }
    /// What the rows are about.
    std::string abouts(const QString& text) const {
        QStringList list;
        for (const MenuItem& item : items(text))
            list.append(about(item));
        return list.join(u'|').toStdString();
    }

    MenuState state;
};

TEST_F(ContextRowsTest, LinksOfferTheirPartsInOrder) {
    const QString link = QStringLiteral("https://shop.example.com/a/cart%20x?q=a%20b&empty=&q=2");
    take(DataKind::url, link);
    EXPECT_EQ(outline(link), "Open in Browser|Paste Domain: shop.example.com|"
                             "Paste End of Path: cart x|Paste Parameter: q=a b|"
                             "Paste Parameter: q=2");
    EXPECT_EQ(abouts(link), link.toStdString() + "|shop.example.com|cart x|a b|2");
    EXPECT_EQ(outline(QStringLiteral("one two three four five six seven eight nine")),
              "Open in Browser")
        << "in prose only the link as a whole counts";
    take(DataKind::url, QStringLiteral("file:///etc/hosts"));
    EXPECT_EQ(outline(QStringLiteral("file:///etc/hosts")), "");
    QString many = QStringLiteral("https://a.example/?");
    for (int i = 0; i < 500; ++i)
        many += QStringLiteral("n%1=v&").arg(i);
    take(DataKind::url, many);
    EXPECT_EQ(items(many).size(), 2 + mostPartRows);
}

TEST_F(ContextRowsTest, EveryKindOffersWhatSuitsIt) {
    const QString mail = QStringLiteral("jane@example.org");
    take(DataKind::email, mail, QStringLiteral("mailto:") + mail);
    EXPECT_EQ(outline(mail), "Write an Email");
    EXPECT_EQ(abouts(mail), "mailto:jane@example.org");
    const QString phone = QStringLiteral("030 901820");
    textServices.phones = {{QStringLiteral("+4930901820"), {QStringLiteral("+49"), phone}}};
    take(DataKind::phone, phone, QStringLiteral("+4930901820"));
    EXPECT_EQ(outline(phone), "Call Number|Paste Number: +4930901820|Paste Digits Only: 030901820|"
                              "Paste Country Code: +49|Paste National Number: 030 901820");
    textServices.found.clear();
    EXPECT_EQ(outline(QStringLiteral("com.example.example.App")),
              "Paste Part: com|Paste Part: example|Paste Part: App");
    EXPECT_EQ(outline(QStringLiteral("git push origin")),
              "Open in Terminal Without Running|Run in Terminal");
    EXPECT_EQ(abouts(QStringLiteral(" git push origin ")), "git push origin|git push origin");
    for (const char* text :
         {"", "plain words", "3.14", "the top-10 in words that go on and on and on"})
        EXPECT_EQ(outline(QString::fromLatin1(text)), "") << text;
}

TEST_F(ContextRowsTest, ReferencesLeadToTheTrackersThatAreSet) {
    const QString key = QStringLiteral("proj-42");
    EXPECT_EQ(outline(key), "Paste Key: PROJ-42");
    EXPECT_EQ(outline(QStringLiteral("PR #7")), "Paste Number: 7");
    EXPECT_EQ(outline(QStringLiteral("Close the menu when its screen is unplugged\n\nPROJ-42")),
              "Paste Key: PROJ-42")
        << "in prose, too";
    qputenv("QUORVEL_JIRA_BASE_URL", "https://env.example");
    EXPECT_EQ(outline(key), "Paste Link to PROJ-42|Open PROJ-42 in Browser|Paste Key: PROJ-42");
    EXPECT_EQ(abouts(key), "https://env.example/browse/PROJ-42|"
                           "https://env.example/browse/PROJ-42|PROJ-42");
    qunsetenv("QUORVEL_JIRA_BASE_URL");
    preferences.setBaseUrls(keys::ticketTrackerBaseURLs,
                            {QStringLiteral("https://a.example"), QStringLiteral("no address"),
                             QStringLiteral("https://b.example:81/j/")});
    EXPECT_EQ(outline(key),
              "Paste Link to PROJ-42 (a.example)|Paste Link to PROJ-42 (b.example:81)|"
              "Open PROJ-42 (a.example) in Browser|"
              "Open PROJ-42 (b.example:81) in Browser|Paste Key: PROJ-42");
    preferences.setBaseUrls(keys::pullRequestBaseURLs, {QStringLiteral("https://git.example/o/r")});
    EXPECT_EQ(
        outline(QStringLiteral("Close the menu when its screen is unplugged\n\nMerges PR #7.")),
        "Paste Number: 7|Paste Link: git.example/o/r/pull/7|Open git.example/o/r/pull/7")
        << "in prose, too";
    EXPECT_EQ(outline(QStringLiteral("PR #7")),
              "Paste Number: 7|Paste Link: git.example/o/r/pull/7|Open git.example/o/r/pull/7");
}

TEST_F(ContextRowsTest, WhatMaskingHidesIsHiddenInRowsButPastedWhole) {
    const QString card = QStringLiteral("4111111111111111");
    const QString link = QStringLiteral("https://a.example/cb?state=on&access_token=") +
                         QStringLiteral("9fQx7Lm2Rv8Zt4Kp6Wd1Yb3Nc5");
    const QString jwt = QStringLiteral("eyJhbGciOiJIUzI1NiJ9.eyJzdWIiOiIxMjM0NTY3ODkwIn0."
                                       "dozjgNryP4J3jVmNHl0w5N_XgL0n3I9PlFUP0THsR8U");
    EXPECT_EQ(outline(card), "Paste Card in Groups: •••••• 1111|Paste Card Digits: •••••• 1111");
    EXPECT_EQ(abouts(card), "4111 1111 1111 1111|4111111111111111");
    EXPECT_EQ(outline(jwt), "Paste Part: ••••••|Paste Part: ••••••|Paste Part: ••••••");
    take(DataKind::url, link);
    EXPECT_EQ(outline(link), "Open in Browser|Paste Domain: a.example|Paste End of Path: cb|"
                             "Paste Parameter: state=on|Paste Parameter: access_token=••••••");
    EXPECT_EQ(about(items(link).last()), QStringLiteral("9fQx7Lm2Rv8Zt4Kp6Wd1Yb3Nc5"));
    const QString note = QStringLiteral("the words before\npassword: HUNTER-223344 ");
    const QString far = QStringLiteral("more words ").repeated(1000);
    textServices.found.clear();
    for (const QString& text : {note, QString(note + far), QString(far + note)})
        EXPECT_EQ(outline(text), "") << text.size();
    preferences.set(keys::sensitiveDataMaskingEnabled, false);
    EXPECT_EQ(outline(note), "Paste Key: HUNTER-223344");
    take(DataKind::url, link);
    EXPECT_EQ(outlineOf(items(link).last()),
              QStringLiteral("Paste Parameter: access_token=9fQx7Lm2Rv8Zt4Kp6Wd1Yb3Nc5"));
    textServices.found.clear();
    EXPECT_EQ(outline(card),
              "Paste Card in Groups: 4111 1111 1111 1111|Paste Card Digits: 4111111111111111");
}

TEST_F(ContextRowsTest, StandBetweenTheWaysToPasteAndThePins) {
    insert(QStringLiteral("com.example"));
    const QUuid snippet = addSnippet(QStringLiteral("s"), QStringLiteral("ls -l"));
    const auto advanced = [this](const QUuid& id) {
        return outlineOf(submenuItems(advancedIdentifier % idText(id), MenuBuild(content, state)));
    };
    EXPECT_TRUE(advanced(first().id)
                    .endsWith(QStringLiteral("Paste and Keep Clipboard|-|Paste Part: com|Paste "
                                             "Part: example|-|Pin|Pin for an Hour|"
                                             "Pin for a Day")));
    EXPECT_TRUE(advanced(snippet).endsWith(QStringLiteral(
        "Paste and Keep Clipboard|-|Open in Terminal Without Running|Run in Terminal")));
}

TEST(ContextPastePayload, CarriesAnyValue) {
    const QString nasty = QStringLiteral("a|b\"\\{}\n\u2028\U0001F600") + QChar(u'\0') + u'x';
    for (const ContextPastePayload& payload :
         {ContextPastePayload{QString(), std::nullopt}, ContextPastePayload{nasty, std::nullopt},
          ContextPastePayload{nasty, QStringLiteral("de|neo")}})
        EXPECT_EQ(ContextPastePayload::fromText(payload.text()), payload);
    for (const char* text : {"", "x", "[]", "{}", "{\"value\":1}"})
        EXPECT_FALSE(ContextPastePayload::fromText(QString::fromLatin1(text))) << text;
}

} // namespace quorvel::testing
