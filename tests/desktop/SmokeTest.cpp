#include "desktop/DesktopTest.h"

namespace quorvel {

namespace {

class SmokeTest : public DesktopTest {};

TEST_F(SmokeTest, copiesAreListedNewestFirstAndQuitEndsTheProgram) {
    startDesktop(TrayHost::tint2);
    ASSERT_TRUE(startProgram()) << program().errors().constData();

    const QByteArrayList texts{"first text", "zweiter Text \xc3\xa4\xc3\xb6\xc3\xbc",
                               "third\nwith two lines"};
    for (const QByteArray& text : texts) {
        copyWithXclip(text);
        EXPECT_TRUE(waitUntil([&] { return newestText() == QString::fromUtf8(text); }))
            << text.constData() << " is not listed";
    }
    const QJsonArray listed = clips();
    ASSERT_EQ(listed.size(), texts.size());
    for (int i = 0; i < listed.size(); ++i) {
        const QJsonObject clip = listed.at(i).toObject();
        EXPECT_EQ(clip[QStringLiteral("position")].toInt(), i + 1);
        EXPECT_EQ(clip[QStringLiteral("text")].toString().toUtf8(), texts.at(texts.size() - 1 - i));
    }

    EXPECT_EQ(control({QStringLiteral("quit")}).exitCode, 0);
    EXPECT_TRUE(waitUntil([&] { return !program().isRunning(); }));
    EXPECT_EQ(program().exitCode(), 0);
    const ProgramResult afterwards = control({QStringLiteral("list")});
    EXPECT_NE(afterwards.exitCode, 0);
    EXPECT_FALSE(afterwards.errors.isEmpty()) << "a clear message when nothing runs";
}

TEST_F(SmokeTest, copiesAreRecognisedAndFiled) {
    startDesktop(TrayHost::none);
    ASSERT_TRUE(startProgram()) << program().errors().constData();
    copyWithXclip("https://example.org/a");
    ASSERT_TRUE(waitUntil([&] { return clips().size() == 1; }));
    copyWithXclip("+49 30 901820");
    ASSERT_TRUE(waitUntil([&] { return clips().size() == 2; }));
    const QJsonArray listed = clips();
    EXPECT_EQ(listed.at(0)[QStringLiteral("tags")].toArray(), QJsonArray{QStringLiteral("phone")});
    EXPECT_EQ(listed.at(1)[QStringLiteral("tags")].toArray(), QJsonArray{QStringLiteral("url")});
    const QJsonObject folders{{QStringLiteral("links"), 1}, {QStringLiteral("phones"), 1}};
    EXPECT_EQ(status()[QStringLiteral("smartFolders")].toObject(), folders);
}

TEST_F(SmokeTest, detectionAnswersEachLineAndGoesOnAfterABadOne) {
    startDesktop(TrayHost::none);
    const ProgramResult result =
        control({QStringLiteral("detect"), QStringLiteral("--region"), QStringLiteral("DE")},
                "\"030 901820\"\nno json\n\"password: hunter2\"\n");
    EXPECT_EQ(result.exitCode, 0) << result.errors.constData();
    const QByteArrayList lines = result.output.trimmed().split('\n');
    ASSERT_EQ(lines.size(), 3);
    const auto answer = [&](int i) { return QJsonDocument::fromJson(lines.at(i)).object(); };
    EXPECT_EQ(answer(0)[QStringLiteral("tags")].toArray(), QJsonArray{QStringLiteral("phone")});
    const QJsonObject match = answer(0)[QStringLiteral("matches")].toArray().at(0).toObject();
    EXPECT_EQ(match[QStringLiteral("value")].toString(), QStringLiteral("+4930901820"));
    EXPECT_EQ(match[QStringLiteral("length")].toInt(), 10);
    EXPECT_TRUE(answer(0)[QStringLiteral("masked")].isNull());
    EXPECT_TRUE(answer(0)[QStringLiteral("micros")].isDouble());
    EXPECT_TRUE(answer(1).contains(QStringLiteral("error")));
    EXPECT_EQ(answer(2)[QStringLiteral("masked")].toString(),
              QStringLiteral("password: \u2022\u2022\u2022\u2022\u2022\u2022"));
}

TEST_F(SmokeTest, textFromTheControlToolReachesOtherPrograms) {
    startDesktop(TrayHost::none);
    ASSERT_TRUE(startProgram()) << program().errors().constData();
    const QByteArray text = "from the command line \xe2\x9c\x93";
    ASSERT_EQ(control({QStringLiteral("copy")}, text).exitCode, 0);

    ProgramResult read;
    EXPECT_TRUE(waitUntil([&] {
        read = desktop().run(QStringLiteral("xclip"),
                             {QStringLiteral("-selection"), QStringLiteral("clipboard"),
                              QStringLiteral("-o"), QStringLiteral("-target"),
                              QStringLiteral("UTF8_STRING")});
        return read.output == text;
    })) << read.output.constData()
        << read.errors.constData();
}

} // namespace

} // namespace quorvel
