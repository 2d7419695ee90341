#include "support/PtyProgram.h"
#include "support/QtPrinting.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvel {

namespace {

/// Says what it was started with: each argument in a line of its own, in squares.
const QByteArray argumentRecorder = "#!/bin/sh\n"
                                    "printf '%s' \"$#\" >>\"$RECORD\"\n"
                                    "printf '[%s]' \"$@\" >>\"$RECORD\"\n";

/// Takes pastes like a line editor, and keeps what it gets, byte by byte.
const QByteArray keyRecorder = "#!/bin/sh\n"
                               "stty raw -echo\n"
                               "printf 'ready\\033[?2004h'\n"
                               "exec head -c \"$BYTES\" >\"$RECORD\"\n";

const QByteArray hostileCommands[]{
    "'; rm -rf ~ #",
    "$(touch harm) `touch harm` ; touch harm",
    "back\\slash \\\\ \\' \"double\" 'single' ''",
    "-c --help %s %n ~ * ? !! &",
    "  two  blanks\tand a tab",
    "\xc3\xbc\xe2\x82\xac\xf0\x9f\x98\x80 \xe2\x80\xae",
    "one\ntouch harm",
};

class TerminalHelperTest : public ::testing::Test {
protected:
    void write(const QString& name, const QByteArray& content, QFile::Permissions permissions) {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.setPermissions(permissions);
    }
    QString path(const QString& name) const { return m_folder.filePath(name); }
    bool exists(const QString& name) const { return QFile::exists(path(name)); }
    QByteArray content(const QString& name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// The real helper with a task for this shell.
    std::unique_ptr<PtyProgram> start(const QByteArray& task, const QByteArray& command,
                                      const QString& shell, qsizetype bytes = 0) {
        write(QStringLiteral("command"), task + "\nTHE NOTE\n" + command, privateFile);
        return start(shell, bytes);
    }
    std::unique_ptr<PtyProgram> start(const QString& shell, qsizetype bytes = 0) {
        return std::make_unique<PtyProgram>(
            QStringList{QStringLiteral(QUORVEL_TERMINAL_HELPER), path(QStringLiteral("command"))},
            QStringList{QStringLiteral("SHELL=") + shell, QStringLiteral("HOME=") + path({}),
                        QStringLiteral("PATH=/usr/bin:/bin"), QStringLiteral("LANG=C.UTF-8"),
                        QStringLiteral("TERM=xterm"), QStringLiteral("PS1=ready> "),
                        QStringLiteral("RECORD=") + path(QStringLiteral("record")),
                        QStringLiteral("BYTES=%1").arg(bytes)},
            m_folder.path());
    }
    QString recorder(const QByteArray& script) {
        write(QStringLiteral("shell"), script, privateFile | QFile::ExeOwner);
        QFile::remove(path(QStringLiteral("record")));
        return path(QStringLiteral("shell"));
    }

    static constexpr auto privateFile = QFile::ReadOwner | QFile::WriteOwner;
    const QString bash = QStringLiteral("/bin/bash");
    const QString dash = QStringLiteral("/bin/dash");

private:
    QTemporaryDir m_folder;
};

TEST_F(TerminalHelperTest, RunsExactlyTheCommandAndThenAShell) {
    QList<QByteArray> commands(std::begin(hostileCommands), std::end(hostileCommands));
    commands << "ends a paste \033[201~ \r\n \033]0;title\a" << QByteArray();
    for (const QByteArray& command : commands) {
        const auto helper = start("run", command, recorder(argumentRecorder));
        EXPECT_EQ(helper->exitCode(), 0);
        EXPECT_EQ(content(QStringLiteral("record")), "2[-c][" + command + "]0[]");
        EXPECT_FALSE(helper->output().contains("\033]0;")) << "it is shown without doing anything";
        EXPECT_FALSE(exists(QStringLiteral("command")));
        EXPECT_FALSE(exists(QStringLiteral("harm")));
    }
}

TEST_F(TerminalHelperTest, TypesExactlyTheCommandAsOnePaste) {
    const auto typed = [&](const QByteArray& command, QByteArray expected) {
        expected = "\033[200~" + expected + "\033[201~";
        const auto helper = start("type", command, recorder(keyRecorder), expected.size());
        EXPECT_EQ(helper->exitCode(), 0);
        EXPECT_EQ(content(QStringLiteral("record")), expected);
        EXPECT_FALSE(exists(QStringLiteral("command")));
    };
    for (QByteArray command : hostileCommands)
        typed(command, QByteArray(command).replace('\n', '\r'));
    typed("x\033[201~\r\ntouch harm\r", "x[201~\rtouch harm");
    typed(QByteArray("a\0b\x03\x04\n", 6), "ab");
}

TEST_F(TerminalHelperTest, WhatIsTypedRunsOnlyWhenTheUserSaysSo) {
    const QByteArray command =
        "printf '%s|' \"'; rm -rf ~ #\" '$(reboot)' '\\ \xc3\xbc\xf0\x9f\x98\x80' "
        ">said\033[201~\r; touch said2";
    const QByteArray said = "'; rm -rf ~ #|$(reboot)|\\ \xc3\xbc\xf0\x9f\x98\x80|";
    const QByteArray oneLine = "printf '%s|' \"'; rm -rf ~ #\" '$(reboot)' '\\ "
                               "\xc3\xbc\xf0\x9f\x98\x80' >said";
    {
        const auto helper = start("type", command, bash);
        ASSERT_TRUE(helper->shows("said2"));
        helper->press("\x03"); // leaves the line
        ASSERT_TRUE(helper->shows("^C"));
        helper->press("echo left$((1+1))\r");
        ASSERT_TRUE(helper->shows("left2"));
        EXPECT_FALSE(exists(QStringLiteral("said")) || exists(QStringLiteral("said2")));
    }
    for (const QString& shell : {bash, dash}) {
        const auto helper = start("type", oneLine, shell);
        ASSERT_TRUE(helper->shows(">said"));
        EXPECT_FALSE(exists(QStringLiteral("said")));
        helper->press("\r");
        helper->press("exit 7\r");
        EXPECT_EQ(helper->exitCode(), 7);
        EXPECT_EQ(content(QStringLiteral("said")), said);
        QFile::remove(path(QStringLiteral("said")));
    }
}

TEST_F(TerminalHelperTest, AShellWithoutPastesGetsOneLineAndTheUserIsTold) {
    const auto helper = start("type", "touch one\ntouch two\n", dash);
    ASSERT_TRUE(helper->shows("THE NOTE\r\nready> touch one"));
    EXPECT_EQ(helper->output().count("touch"), 1) << "nothing is shown twice, nothing follows";
    EXPECT_FALSE(exists(QStringLiteral("one")));
    helper->press("\rexit\r");
    EXPECT_EQ(helper->exitCode(), 0);
    EXPECT_TRUE(exists(QStringLiteral("one")));
    EXPECT_FALSE(exists(QStringLiteral("two")));
}

TEST_F(TerminalHelperTest, TheShellSeesTheSizeOfTheWindow) {
    const auto helper = start("type", "stty size", bash);
    ASSERT_TRUE(helper->shows("stty size"));
    helper->press("\r");
    ASSERT_TRUE(helper->shows("24 80"));
    helper->resize(31, 99);
    EXPECT_TRUE(waitUntil([&] { // the news of the size may come after the keys
        helper->press("stty size\r");
        return helper->output().contains("31 99");
    }));
}

TEST_F(TerminalHelperTest, TakesNoCommandThatOthersCouldHaveWritten) {
    write(QStringLiteral("command"), "run\n\ntouch harm", privateFile | QFile::WriteGroup);
    const auto helper = start(dash);
    ASSERT_TRUE(helper->shows("not a private file"));
    helper->press("exit\r");
    EXPECT_EQ(helper->exitCode(), 0);
    EXPECT_FALSE(exists(QStringLiteral("harm")));
    EXPECT_TRUE(exists(QStringLiteral("command")));
}

} // namespace

} // namespace quorvel
