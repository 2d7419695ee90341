#include "desktop/MenuDesktopTest.h"

#include <csignal>

namespace quorvel {

namespace {

/// Pasting into programs that do as they are told, to see what reaches which.
class PasteTest : public MenuDesktopTest {
protected:
    std::unique_ptr<ChildProgram> startTarget(const QString& windowClass,
                                              const QStringList& arguments = {}) {
        auto target =
            desktop().start(QStringLiteral(QUORVEL_RAW_TARGET),
                            arguments + QStringList{QStringLiteral("--class"), windowClass});
        EXPECT_TRUE(waitUntil([&] { return target->hasPrinted("ready"); }));
        EXPECT_TRUE(comesToFront(windowClass));
        return target;
    }
    QString windowOf(const QString& windowClass) {
        return QString::fromLatin1(
            xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                     QStringLiteral("--class"), QStringLiteral("^%1$").arg(windowClass)})
                .output.trimmed());
    }

    /// Closes what the program says when it could not paste.
    void dismissMessage() {
        waitUntil([&] {
            const bool isThere = !windowOf(QStringLiteral("quorvel")).isEmpty();
            if (isThere)
                press(QStringLiteral("Escape"));
            return !isThere;
        });
    }
    bool comesToFront(const QString& windowClass) {
        return waitUntil([&] {
            const QString window = windowOf(windowClass);
            return !window.isEmpty() && windowInFront() == window;
        });
    }
    QString windowInFront() {
        return QString::fromLatin1(xdotool({QStringLiteral("getwindowfocus")}).output.trimmed());
    }
    bool paste(int position, const QString& mode = {}) {
        QStringList arguments{QStringLiteral("paste"), QString::number(position)};
        if (!mode.isEmpty())
            arguments.append(mode);
        return control(arguments).exitCode == 0;
    }
};

} // namespace

TEST_F(PasteTest, aProgramThatAsksLateGetsWhatWasPastedAndEverybodyElseWhatCameBack) {
    begin(TrayHost::none);
    copy({QStringLiteral("pasted"), QStringLiteral("kept")});
    for (const char* time : {"", "--timeless"}) {
        QStringList arguments{QStringLiteral("--delay"), QStringLiteral("500")};
        if (*time)
            arguments.append(QString::fromLatin1(time));
        const auto target = startTarget(QStringLiteral("Slow"), arguments);
        ASSERT_TRUE(paste(2, QStringLiteral("--keep")));
        ASSERT_TRUE(waitUntil([&] { return target->hasPrinted("key"); }));
        EXPECT_TRUE(waitUntil([&] { return clipboard() == "kept"; }));
        EXPECT_FALSE(target->output().contains("pasted")) << "it has not even asked";
        EXPECT_TRUE(waitUntil([&] { return target->output().contains("pasted"); }));
        EXPECT_EQ(target->output(), "ready\nkey\npasted pasted\n");
        EXPECT_EQ(clipboard(), "kept");
        ASSERT_TRUE(paste(1)); // The clip that was used is the first now.
        EXPECT_TRUE(waitUntil([&] { return target->output().count("key") == 2; }));
        copy({QStringLiteral("kept")});
    }
    EXPECT_EQ(clips().size(), 2);
}

TEST_F(PasteTest, pastesInQuickSuccessionArriveInOrderEvenInASlowProgram) {
    begin(TrayHost::none);
    copy({QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a")});
    const auto target =
        startTarget(QStringLiteral("Slow"), {QStringLiteral("--delay"), QStringLiteral("300"),
                                             QStringLiteral("--timeless")});
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(paste(3)); // Each brings its clip to the top.
    EXPECT_TRUE(waitUntil([&] { return target->output().count("pasted") == 3; }));
    EXPECT_EQ(target->output(), "ready\nkey\npasted c\nkey\npasted b\nkey\npasted a\n");
}

/// Another window takes the focus a little later in each round: before, between and after all steps
/// of the paste.
TEST_F(PasteTest, keysNeverReachAWindowThatTakesTheFocusMeanwhile) {
    begin(TrayHost::none);
    copy({QStringLiteral("clip")});
    const auto neighbour = startTarget(QStringLiteral("Neighbour"));
    const auto target = startTarget(QStringLiteral("Wanted"));
    const QString place = windowOf(QStringLiteral("Wanted"));
    const QString beside = windowOf(QStringLiteral("Neighbour"));
    int given = 0;
    for (int milliseconds = 0; milliseconds < 120; milliseconds += 6) {
        SCOPED_TRACE(milliseconds);
        xdotool({QStringLiteral("windowfocus"), place});
        ASSERT_TRUE(comesToFront(QStringLiteral("Wanted")));
        copy({QStringLiteral("other")});
        ASSERT_TRUE(paste(2));
        xdotool({QStringLiteral("sleep"), QString::number(milliseconds / 1000.0),
                 QStringLiteral("windowfocus"), beside});
        const auto refusals = [&] { return program().errors().count("no keys sent"); };
        ASSERT_TRUE(waitUntil([&] {
            return target->output().count("pasted clip") + refusals() == given + 1;
        })) << target->output().constData();
        ++given;
        EXPECT_EQ(clipboard(), "clip");
        dismissMessage();
    }
    EXPECT_EQ(neighbour->output(), "ready\n");
    EXPECT_GT(target->output().count("pasted clip"), 0);
    EXPECT_LT(target->output().count("pasted clip"), given);
}

TEST_F(PasteTest, aTargetThatHangsGetsItsClipWhenItIsBack) {
    begin(TrayHost::none);
    copy({QStringLiteral("clip"), QStringLiteral("kept")});
    const auto target = startTarget(QStringLiteral("Hanging"));
    target->signal(SIGSTOP);
    ASSERT_TRUE(paste(2, QStringLiteral("--keep")));
    EXPECT_TRUE(waitUntil([&] { return clipboard() == "clip"; }));
    EXPECT_TRUE(waitUntil([&] { return clipboard() == "kept"; }));
    target->signal(SIGCONT);
    EXPECT_TRUE(waitUntil([&] { return target->output() == "ready\nkey\npasted clip\n"; }))
        << target->output().constData();
    EXPECT_EQ(clipboard(), "kept");
}

/// Its questions come together then, and tell by nothing which paste they are about.
TEST_F(PasteTest, twoPastesIntoATargetThatHangsArriveOnceEach) {
    begin(TrayHost::none);
    copy({QStringLiteral("second"), QStringLiteral("first"), QStringLiteral("kept")});
    const auto target = startTarget(QStringLiteral("Hanging"), {QStringLiteral("--timeless")});
    target->signal(SIGSTOP);
    ASSERT_TRUE(paste(2, QStringLiteral("--keep")));
    ASSERT_TRUE(paste(3, QStringLiteral("--keep")));
    const auto posted = [this] {
        return status()[QStringLiteral("pastes")].toObject()[QStringLiteral("posted")].toInt();
    };
    EXPECT_TRUE(waitUntil([&] { return posted() == 2; }));
    target->signal(SIGCONT);
    EXPECT_TRUE(waitUntil([&] { return target->output().count("pasted") == 2; }));
    EXPECT_EQ(target->output(), "ready\nkey\nkey\npasted first\npasted second\n");
    EXPECT_TRUE(waitUntil([&] { return clipboard() == "kept"; }));
}

/// Programs then take the key by its place.
TEST_F(PasteTest, aLayoutWithoutTheLetterOfThePasteKeysIsNoObstacle) {
    begin(TrayHost::none);
    desktop().run(QStringLiteral("setxkbmap"), {QStringLiteral("gr")});
    copy({QStringLiteral("clip")});
    const auto target = startTarget(QStringLiteral("Greek"));
    ASSERT_TRUE(paste(1));
    EXPECT_TRUE(waitUntil([&] { return target->output() == "ready\nkey\npasted clip\n"; }))
        << target->output().constData();
}

TEST_F(PasteTest, aTargetThatEndsBetweenChoiceAndKeysHurtsNobody) {
    begin(TrayHost::none);
    copy({QStringLiteral("clip")});
    const auto neighbour = startTarget(QStringLiteral("Neighbour"));
    auto target = startTarget(QStringLiteral("Wanted"));
    ASSERT_TRUE(menuOpens([&] { press(QStringLiteral("super+shift+v")); }));
    target.reset();
    press(QStringLiteral("super+1"));
    EXPECT_TRUE(waitUntil([&] {
        return program().errors().contains("no keys sent") ||
               neighbour->output() == "ready\nkey\npasted clip\n";
    })) << program().errors().constData();
    EXPECT_EQ(clipboard(), "clip");
    EXPECT_EQ(control({QStringLiteral("status")}).exitCode, 0);
}

} // namespace quorvel
