#include "SnippetRig.h"

#include "snippets/SnippetCoder.h"

#include <QDir>
#include <QSet>

#include <gtest/gtest.h>

namespace quorvel::testing {

namespace {

/// A file with these snippets in the root and this in the list of groups.
QByteArray fileWith(const QByteArray& snippets, const QByteArray& groups = {}) {
    return R"({"rootSnippets": [)" + snippets + R"(], "groups": [)" + groups + "]}";
}

constexpr const char* good =
    R"({"id": "0D3B7A52-6C1E-4E0B-9F55-2A6F9C3D1E01", "title": "good", "text": "g"})";
constexpr const char* alsoGood =
    R"({"id": "0D3B7A52-6C1E-4E0B-9F55-2A6F9C3D1E02", "title": "also", "text": ""})";

} // namespace

class SnippetFileTest : public ::testing::Test {
protected:
    void SetUp() override { QDir().mkpath(folder.filePath(QStringLiteral("QuorvelMenuBar"))); }

    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("QuorvelMenuBar/snippets.json"));
};

TEST_F(SnippetFileTest, TheFileHasItsExactShape) {
    const QUuid id(QStringLiteral("0d3b7a52-6c1e-4e0b-9f55-2a6f9c3d1e01"));
    const Snippet full{id,
                       QStringLiteral("T"),
                       QStringLiteral("x"),
                       2,
                       SnippetShortcut{QStringLiteral("k"), 0x120000},
                       4,
                       {}};
    const SnippetGroup pack{
        id, QStringLiteral("P"), {}, QStringLiteral("p"), QStringLiteral("g"), 7, {}};
    EXPECT_EQ(encodedSnippetFile({{full}, {pack}, {}}), QByteArray(R"({
    "groups": [
        {
            "id": "0D3B7A52-6C1E-4E0B-9F55-2A6F9C3D1E01",
            "name": "P",
            "packGroupID": "g",
            "packID": "p",
            "packVersion": 7,
            "snippets": [
            ]
        }
    ],
    "rootSnippets": [
        {
            "customShortcut": {
                "key": "k",
                "modifiersRawValue": 1179648
            },
            "id": "0D3B7A52-6C1E-4E0B-9F55-2A6F9C3D1E01",
            "shortcut": 2,
            "text": "x",
            "title": "T",
            "usageCount": 4
        }
    ]
}
)"));
}

TEST_F(SnippetFileTest, EveryValueAndEveryUnknownKeySurvives) {
    const QJsonObject unknown{{QStringLiteral("colour"), QStringLiteral("red")}};
    QString odd = QStringLiteral("a\"\\\n\t\r\u2028 \U0001F469\u200D\U0001F680 é");
    odd += QChar(0);
    odd += QChar(0xD800);
    constexpr qint64 large = std::numeric_limits<qint64>::max();
    const auto snippet = [&](qint64 number) {
        return Snippet{QUuid::createUuid(),
                       odd,
                       odd + odd,
                       number,
                       SnippetShortcut{QStringLiteral("F12"), 0xFFFFFFFF},
                       number,
                       unknown};
    };
    const SnippetGroup plain{QUuid::createUuid(), odd, {}, {}, {}, {}, {}};
    const SnippetGroup pack{
        QUuid::createUuid(), odd, {snippet(large), snippet(-1)}, odd, odd, 0, unknown};
    const StoreData data{{snippet(0), snippet(-large)}, {plain, pack}, unknown};
    const DecodedStoreData read = decodedSnippetFile(encodedSnippetFile(data));
    EXPECT_FALSE(read.damaged);
    EXPECT_EQ(read.data, data);
}

TEST_F(SnippetFileTest, OptionalKeysMayBeMissing) {
    putContent(file, fileWith(good, R"({"id": "0D3B7A52-6C1E-4E0B-9F55-2A6F9C3D1E03",
        "name": "user's", "snippets": [], "packID": null})"));
    const SnippetSession run(file);
    EXPECT_TRUE(run.store.setAsideFiles().isEmpty());
    ASSERT_EQ(run.outline(), QStringLiteral("good|user's:"));
    const Snippet& snippet = run.store.rootSnippets().first();
    EXPECT_EQ(snippet.usageCount, 0);
    EXPECT_FALSE(snippet.shortcut || snippet.customShortcut);
    EXPECT_FALSE(run.store.groups().first().packID.has_value());
}

TEST_F(SnippetFileTest, DamagedFilesAreSetAsideAndTheRestIsKept) {
    const QByteArray ok = fileWith(good);
    const auto spoilt = [](const char* member) {
        QByteArray snippet = alsoGood;
        return fileWith(snippet.insert(1, member) + ',' + good);
    };
    const auto group = [](const char* head) {
        return fileWith(good, '{' + QByteArray(head) + R"("snippets": [)" + alsoGood + "]}");
    };
    struct Case {
        QByteArray bytes;
        const char* kept;
    };
    const Case cases[] = {
        {"", ""},
        {ok.left(ok.size() / 2), ""},
        {"[]", ""},
        {"{}", ""},
        {QByteArray("\0\xff\x80", 3), ""},
        {R"({"rootSnippets": 3, "groups": []})", ""},
        {QByteArray(R"({"rootSnippets": [)") + good + "]}", "good"},
        {fileWith(QByteArray(R"({"title": "no id", "text": "t"},)") + good), "good"},
        {fileWith(QByteArray(R"({"id": "junk", "title": "t", "text": "t"},)") + good), "good"},
        {fileWith(QByteArray(good) + R"(, 7, null, "text", [])"), "good"},
        {spoilt(R"("usageCount": "many",)"), "also,good"},
        {spoilt(R"("usageCount": 1.5,)"), "also,good"},
        {spoilt(R"("shortcut": 1e300,)"), "also,good"},
        {spoilt(R"("customShortcut": {"key": 3},)"), "also,good"},
        {fileWith(QByteArray(good) + ',' + good), "good,good"},
        {fileWith(good, R"({"id": "0D3B7A52-6C1E-4E0B-9F55-2A6F9C3D1E03", "name": "G"})"),
         "good|G:"},
        {group(R"("name": "no id",)"), "good,also"},
        {group(R"("id": "0D3B7A52-6C1E-4E0B-9F55-2A6F9C3D1E03", "name": {},)"), "also,good"},
        {group(R"("id": "0D3B7A52-6C1E-4E0B-9F55-2A6F9C3D1E01", "name": "G",)"), "good|G:also"},
    };
    for (const Case& c : cases) {
        putContent(file, c.bytes);
        SnippetSession run(file);
        const auto sorted = [](QString outline) {
            QStringList titles = outline.split(u',');
            titles.sort();
            return titles.join(u',');
        };
        EXPECT_EQ(sorted(run.outline()), sorted(QString::fromUtf8(c.kept))) << c.bytes.data();
        ASSERT_EQ(run.store.setAsideFiles().size(), 1) << c.bytes.data();
        const QString aside = run.store.setAsideFiles().first();
        run.add("new");
        EXPECT_EQ(contentOf(aside), c.bytes);
        const SnippetSession after(file);
        EXPECT_TRUE(after.store.setAsideFiles().isEmpty()) << c.bytes.data();
        EXPECT_EQ(after.data(), run.data()) << c.bytes.data();
        QFile::remove(aside);
    }
}

TEST_F(SnippetFileTest, EachIdIsThereOnce) {
    putContent(file, fileWith(QByteArray(good) + ',' + good + ',' + good));
    const SnippetSession run(file);
    QSet<QUuid> ids;
    for (const Snippet& snippet : run.store.rootSnippets())
        ids.insert(snippet.id);
    EXPECT_EQ(ids.size(), 3);
    EXPECT_EQ(run.store.rootSnippets().first().id,
              QUuid(QStringLiteral("0D3B7A52-6C1E-4E0B-9F55-2A6F9C3D1E01")));
}

TEST_F(SnippetFileTest, GiantAndUnreadableFilesAreSetAsideUnread) {
    putContent(file, {});
    ASSERT_TRUE(QFile::resize(file, SnippetFile::mostBytes + 1));
    EXPECT_EQ(SnippetSession(file).store.setAsideFiles().size(), 1);
    ASSERT_TRUE(QDir().mkpath(file)); // a folder in its place cannot be read
    SnippetSession run(file);
    EXPECT_EQ(run.store.setAsideFiles().size(), 1);
    run.add("x");
    EXPECT_EQ(SnippetSession(file).outline(), QStringLiteral("x"));
}

TEST_F(SnippetFileTest, ADamagedFileThatCannotBeRenamedIsNeverWrittenOver) {
    const QByteArray damaged = "{ damaged";
    // Once every dated name of this moment is taken, the file has nowhere to go.
    constexpr int names = 100;
    for (int i = 0; i < names; ++i) {
        putContent(file, damaged);
        EXPECT_EQ(SnippetSession(file).store.setAsideFiles().size(), 1);
    }
    putContent(file, damaged);
    SnippetSession stuck(file);
    EXPECT_TRUE(stuck.store.setAsideFiles().isEmpty());
    stuck.add("x");
    stuck.mainQueue.settle();
    EXPECT_EQ(contentOf(file), damaged);
    EXPECT_FALSE(stuck.store.saveProblem().isEmpty());
    stuck.mainQueue.advance(SnippetFile::retryDelay); // the date has moved on
    stuck.mainQueue.settle();
    EXPECT_TRUE(stuck.store.saveProblem().isEmpty());
    EXPECT_EQ(contentOf(stuck.store.setAsideFiles().value(0)), damaged);
    EXPECT_EQ(SnippetSession(file).outline(), QStringLiteral("x"));
}

TEST_F(SnippetFileTest, NoFileIsAnEmptyLibraryAndNothingIsWritten) {
    SnippetSession run(file);
    run.store.saveNow();
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_TRUE(run.store.saveProblem().isEmpty());
}

} // namespace quorvel::testing
