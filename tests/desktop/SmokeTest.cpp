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
