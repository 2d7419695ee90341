#include "desktop/DesktopTest.h"

#include <QBuffer>
#include <QFile>

namespace quorvel {

namespace {

using namespace std::chrono_literals;

class HostileClipboardTest : public DesktopTest {
protected:
    void SetUp() override {
        startDesktop(TrayHost::none);
        ASSERT_TRUE(startProgram());
    }

    std::unique_ptr<ChildProgram> own(const QStringList& arguments) {
        auto owner = desktop().start(QStringLiteral(QUORVEL_RAW_OWNER), arguments);
        EXPECT_TRUE(waitUntil([&] { return owner->hasPrinted("ready"); }))
            << owner->errors().constData();
        return owner;
    }
    QString fileWith(const QByteArray& bytes) {
        const QString path = desktop().folder() + QStringLiteral("/content");
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }
    qint64 changes(const char* kind) {
        const QJsonValue value =
            status()[QStringLiteral("changes")].toObject()[QString::fromLatin1(kind)];
        if (!value.isObject())
            return value.toInteger();
        qint64 sum = 0;
        for (const auto& count : value.toObject())
            sum += count.toInteger();
        return sum;
    }
    bool stillTakesCopies() {
        const QByteArray text = "still alive " + QByteArray::number(++m_copies);
        copyWithXclip(text);
        return waitUntil([&] { return newestText() == QString::fromUtf8(text); });
    }
    double megabytes(const QByteArray& field) {
        QFile file(QStringLiteral("/proc/%1/status").arg(program().pid()));
        if (!file.open(QIODevice::ReadOnly))
            return -1;
        for (const QByteArray& line : file.readAll().split('\n'))
            if (line.startsWith(field))
                return line.mid(field.size()).simplified().split(' ').first().toDouble() / 1024;
        return -1;
    }

private:
    int m_copies = 0;
};

TEST_F(HostileClipboardTest, ownersThatHangAreGivenUpAndCounted) {
    const QList<QStringList> owners{
        {QStringLiteral("--silent"), QStringLiteral("--text"), QStringLiteral("x")},
        {QStringLiteral("--targets-only"), QStringLiteral("--text"), QStringLiteral("x")},
        {QStringLiteral("--incr"), QStringLiteral("100"), QStringLiteral("--stall-after"),
         QStringLiteral("300"), QStringLiteral("--text"), QString(1000, u'x')},
    };
    for (qsizetype i = 0; i < owners.size(); ++i) {
        const auto owner = own(owners.at(i));
        EXPECT_TRUE(waitUntil([&] { return changes("failed") == i + 1; }));
        EXPECT_TRUE(stillTakesCopies());
    }
}

TEST_F(HostileClipboardTest, aHungOwnerDoesNotHoldUpTheNextCopy) {
    for (int i = 0; i < 5; ++i) {
        const auto hung =
            own({QStringLiteral("--silent"), QStringLiteral("--text"), QStringLiteral("x")});
        EXPECT_TRUE(stillTakesCopies());
    }
    EXPECT_EQ(clips().size(), 5);
}

TEST_F(HostileClipboardTest, secretsAreNeitherReadNorRecorded) {
    const auto owner =
        own({QStringLiteral("--secret"), QStringLiteral("--text"), QStringLiteral("hunter2")});
    EXPECT_TRUE(waitUntil([&] { return changes("skipped") == 1; }));
    EXPECT_FALSE(owner->output().contains("request UTF8_STRING"));
    EXPECT_TRUE(clips().isEmpty());
    EXPECT_TRUE(stillTakesCopies());
}

TEST_F(HostileClipboardTest, aHundredMegabytesAreRefusedAndTheMemoryGivenBack) {
    ASSERT_TRUE(stillTakesCopies());
    const double before = megabytes("VmRSS:");
    {
        const auto owner =
            own({QStringLiteral("UTF8_STRING=@") + fileWith(QByteArray(100'000'000, 'x'))});
        EXPECT_TRUE(waitUntil([&] { return changes("failed") == 1; }, 30s));
        EXPECT_TRUE(stillTakesCopies());
    }
    EXPECT_LT(megabytes("VmRSS:"), before + 10);
}

TEST_F(HostileClipboardTest, manyFormatsAndStrangeContentsAreTakenSanely) {
    QStringList sixty;
    for (int i = 0; i < 60; ++i)
        sixty.append(QStringLiteral("application/x-form-%1=content %1").arg(i));
    sixty.append(QStringLiteral("UTF8_STRING=sixty forms"));
    const QString brokenPng = QStringLiteral("image/png=not a picture");
    struct Case {
        const char* what;
        QStringList offers;
        std::function<bool(const QString&)> isRight;
    };
    const Case cases[] = {
        {"60 forms", sixty,
         [](const QString& text) { return text == QStringLiteral("sixty forms"); }},
        {"broken picture with text",
         {brokenPng, QStringLiteral("UTF8_STRING=beside a broken picture")},
         [](const QString& text) { return text == QStringLiteral("beside a broken picture"); }},
        {"zero bytes",
         {QStringLiteral("UTF8_STRING=@") + fileWith(QByteArray("a\0b\0", 4))},
         [](const QString& text) { return text == QStringLiteral("a\0b"); }},
    };
    for (const Case& testCase : cases) {
        SCOPED_TRACE(testCase.what);
        const qint64 before = changes("captured");
        const auto owner = own(testCase.offers);
        EXPECT_TRUE(waitUntil([&] { return changes("captured") == before + 1; }));
        EXPECT_TRUE(testCase.isRight(newestText())) << newestText().toStdString();
    }
    const auto broken = own({brokenPng});
    EXPECT_TRUE(stillTakesCopies());
    EXPECT_FALSE(clips().at(1).toObject()[QStringLiteral("image")].toBool());
}

TEST_F(HostileClipboardTest, aLargePictureIsOneClip) {
    const QString picture = desktop().folder() + QStringLiteral("/noise.png");
    desktop().run(QStringLiteral("convert"),
                  {QStringLiteral("-size"), QStringLiteral("2100x2100"), QStringLiteral("xc:gray"),
                   QStringLiteral("+noise"), QStringLiteral("Random"), picture});
    ASSERT_GT(QFileInfo(picture).size(), 8'000'000);
    const auto owner = own({QStringLiteral("image/png=@") + picture});
    EXPECT_TRUE(
        waitUntil([&] { return clips().at(0).toObject()[QStringLiteral("image")].toBool(); }));
    EXPECT_EQ(control({QStringLiteral("show")}).exitCode, 0);
    EXPECT_TRUE(stillTakesCopies());
}

TEST_F(HostileClipboardTest, aMillionEmojiAreOneClip) {
    const QString emoji = QStringLiteral("\U0001F469\u200D\U0001F469\u200D\U0001F467");
    const auto owner =
        own({QStringLiteral("UTF8_STRING=@") + fileWith(emoji.repeated(1'000'000).toUtf8())});
    EXPECT_TRUE(waitUntil([&] { return newestText().size() == emoji.size() * 1'000'000; }, 60s));
    EXPECT_EQ(control({QStringLiteral("show")}).exitCode, 0);
    EXPECT_TRUE(stillTakesCopies());
}

TEST_F(HostileClipboardTest, aThousandCopiesInFiveSecondsAreAllTakenInOrder) {
    const auto owner =
        own({QStringLiteral("--burst"), QStringLiteral("1000"), QStringLiteral("--every"),
             QStringLiteral("5"), QStringLiteral("--await-fetch")});
    // Nothing else is asked of the machine meanwhile.
    ASSERT_TRUE(waitUntil([&] { return owner->hasPrinted("copied burst 1000"); }, 60s));
    EXPECT_TRUE(waitUntil([&] { return newestText() == QStringLiteral("burst 1000"); }));
    EXPECT_EQ(changes("captured"), 1000);
    EXPECT_EQ(changes("failed"), 0);
    const QJsonArray list = clips();
    for (int i = 0; i < list.size(); ++i)
        EXPECT_EQ(list.at(i).toObject()[QStringLiteral("text")].toString(),
                  QStringLiteral("burst %1").arg(1000 - i));
}

} // namespace

} // namespace quorvel
