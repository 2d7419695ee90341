#include "FakeTextServices.h"
#include "corpus/Judgement.h"

#include "smart/SmartDetector.h"
#include "smart/masking/SecretMasker.h"

#include <gtest/gtest.h>

namespace quorvel::testing {
namespace {

struct SmartDetectorTest : ::testing::Test {
    QString tags(const QString& text) const {
        QStringList names;
        for (const ClipboardAutoTag tag : detector.detectAutoTags(text))
            names.append(rawName(tag));
        return names.join(u' ');
    }

    FakeTextServices services;
    SmartPluginRegistry registry;
    SmartDetector detector{registry, services, services};
};

TEST_F(SmartDetectorTest, ReportsTagsInTheirOrder) {
    services.names = {QStringLiteral("John Smith")};
    const QList<std::pair<const char16_t*, const char*>> cases{
        {u" \n\t", ""},
        {u"{\n\"a\": 1\n}", "json code multiline"},
        {u"proj-42", "ticket jiraIssue"},
        {u"see PR #42", "pullRequest"},
        {u" John Smith ", "name"},
        {u"git status\ngit diff", "multiline"},
        {u"echo {a} > b", "code terminalCommand"},
        {u"550e8400-e29b-41d4-a716-446655440000", "uuid"},
        {u"10.0.0.7 DE89370400440532013000 #fff", "color iban ip"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(tags(QString::fromUtf16(text)), QString::fromLatin1(expected));
}

TEST_F(SmartDetectorTest, TakesDataFromTheDetectorForSingleValuesOnly) {
    services.found = {{DataKind::email, 0, 5, QStringLiteral("mailto:a@b.c")},
                      {DataKind::phone, 6, 3, {}}};
    EXPECT_EQ(tags(QStringLiteral("short value")), QStringLiteral("email phone"));
    EXPECT_EQ(services.detections, 1) << "asked once for all tests that need it";
    EXPECT_EQ(tags(QStringLiteral("4111 1111 1111 1111")), QStringLiteral("email card"))
        << "a valid card number is no telephone number";
    services.detections = 0;
    EXPECT_EQ(tags(QStringLiteral("this text has far too many words to be one value")), QString());
    EXPECT_EQ(services.detections, 0);
}

TEST_F(SmartDetectorTest, AUuidInsideALinkIsPartOfTheLink) {
    const QString text = QStringLiteral("https://h/550e8400-e29b-41d4-a716-446655440000");
    services.found = {{DataKind::url, 0, text.size(), text}};
    EXPECT_EQ(tags(text), QStringLiteral("url"));
}

TEST(SmartPluginRegistry, SortsTagsIntoFolders) {
    const SmartPluginRegistry registry;
    using Tag = ClipboardAutoTag;
    using Folder = SmartFolderKind;
    using Folders = QList<SmartFolderKind>;
    EXPECT_EQ(registry.folders({Tag::screenshot, Tag::image}), Folders{Folder::screenshots});
    EXPECT_EQ(registry.folders({Tag::image}), Folders{Folder::images});
    EXPECT_EQ(registry.folders({Tag::json}), Folders{Folder::code});
    EXPECT_EQ(registry.folders({Tag::jiraIssue, Tag::url}),
              (Folders{Folder::tickets, Folder::links}));
    EXPECT_EQ(registry.folders({Tag::multiline}), Folders{});
    EXPECT_EQ(registry.typePlugins().size(), 20U);
    EXPECT_EQ(registry.typePlugins().back()->id(), QStringLiteral("type.terminalCommand"));
    for (const SmartFolderKind folder : allSmartFolders())
        EXPECT_EQ(registry.folderPlugin(folder)->id(), QStringLiteral("folder.") + rawName(folder));
}

TEST(SmartPluginRegistryDeathTest, TwoPluginsForOneFolderEndTheProcess) {
    auto twice = makeFolderPlugins();
    twice.push_back(std::move(makeFolderPlugins().front()));
    EXPECT_DEATH(SmartPluginRegistry(makeTypePlugins(), std::move(twice)),
                 "Duplicate values for key: 'screenshots'");
}

/// Whatever stands between the arguments of a command, reading them comes to an end.
TEST(SecretMasker, EndsForEveryUnitInACommand) {
    const QString command = QStringLiteral("redis-cli -a 9ZzAmVuWyd6rn%1 ping");
    int touched = 0;
    for (int unit = 0; unit <= 0xFFFF; ++unit)
        touched += maskedSecrets(command.arg(QChar(unit))).contains(QChar(0x2022)) ? 1 : 0;
    EXPECT_GT(touched, 0xF000);
}

/// The least that detection must reach on the labelled texts, a little below what it does.
TEST(Corpus, IsJudgedRightly) {
    struct Floor {
        const char* kind;
        double precision;
        double recall;
    };
    for (const Floor& floor : {
             Floor{"url", 0.99, 0.99},
             Floor{"email", 0.99, 0.99},
             Floor{"phone", 0.98, 0.97},
             Floor{"date", 0.97, 0.95},
             Floor{"address", 0.95, 0.90},
             Floor{"name", 0.98, 0.97},
             Floor{"secret", 0.99, 0.985},
         }) {
        const QString kind = QString::fromLatin1(floor.kind);
        const auto texts = readCorpus(QStringLiteral(QUORVEL_CORPUS "/%1.txt").arg(kind));
        const Score score = judge(kind, texts).score;
        EXPECT_GE(score.precision(), floor.precision) << floor.kind;
        EXPECT_GE(score.recall(), floor.recall) << floor.kind;
        EXPECT_GE(score.truePositives + score.falseNegatives, 200) << floor.kind;
        EXPECT_GE(score.trueNegatives + score.falsePositives, 200) << floor.kind;
    }
}

} // namespace
} // namespace quorvel::testing
