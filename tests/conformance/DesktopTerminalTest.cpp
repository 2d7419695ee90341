#include "platform/desktop/DesktopTerminal.h"
#include "conformance/TestDesktop.h"
#include "platform/desktop/TerminalPrograms.h"
#include "support/QtPrinting.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvel {

namespace {

class DesktopTerminalTest : public ::testing::Test {
protected:
    DesktopTerminalTest() {
        environment.insert(QStringLiteral("PATH"), path(QStringLiteral("bin")));
        environment.remove(QStringLiteral("TERMINAL"));
        QDir().mkpath(path(QStringLiteral("bin")));
    }

    QString path(const QString& name) const { return m_folder.filePath(name); }
    void addProgram(const QString& name, const QByteArray& script = "#!/bin/sh\n") {
        QFile file(path(QStringLiteral("bin/") + name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(script) == script.size());
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QByteArray content(const QString& name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    DesktopTerminal terminal(const QString& helper = QStringLiteral(QUORVEL_TERMINAL_HELPER)) {
        return DesktopTerminal(
            {helper, path(QStringLiteral("commands")), QStringLiteral("the note"), environment});
    }
    /// Name and arguments of the terminal that is taken.
    QString taken(const char* named) {
        environment.insert(QStringLiteral("TERMINAL"), QString::fromLatin1(named));
        const auto program = userTerminal(environment);
        return program
                   ? (QFileInfo(program->path).fileName() + u' ' + program->arguments.join(u' '))
                         .trimmed()
                   : QStringLiteral("none");
    }

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();

private:
    QTemporaryDir m_folder;
};

TEST_F(DesktopTerminalTest, TakesTheTerminalThatTheUserNames) {
    EXPECT_EQ(taken(""), QStringLiteral("none"));
    for (const char* name : {"xterm", "gnome-terminal", "kitty", "own-term", "my term"})
        addProgram(QString::fromLatin1(name));
    const struct {
        QByteArray named;
        const char* taken;
    } cases[]{{"", "gnome-terminal --"},
              {"not-there", "gnome-terminal --"},
              {"xterm", "xterm -e"},
              {"kitty --single-instance", "kitty --single-instance"},
              {"own-term --title \"a b\"", "own-term --title a b -e"},
              {path(QStringLiteral("bin/my term")).toLocal8Bit(), "my term -e"}};
    for (const auto& [named, expected] : cases)
        EXPECT_EQ(taken(named.constData()), QString::fromLatin1(expected));
    addProgram(QStringLiteral("xdg-terminal-exec"));
    EXPECT_EQ(taken(""), QStringLiteral("xdg-terminal-exec"));
}

TEST_F(DesktopTerminalTest, NoArgumentHoldsAPartOfTheCommand) {
    addProgram(QStringLiteral("xterm"), "#!/bin/sh\n"
                                        "/usr/bin/stat -c %a \"$3\" >\"$RECORD.mode\"\n"
                                        "/bin/cp \"$3\" \"$RECORD.file\"\n"
                                        "printf '[%s]' \"$@\" >\"$RECORD.part\"\n"
                                        "/bin/mv \"$RECORD.part\" \"$RECORD\"\n");
    environment.insert(QStringLiteral("RECORD"), path(QStringLiteral("record")));
    const QString command = QStringLiteral("'; rm -rf ~ #\n$(reboot) \u00fc\U0001F600\n");
    for (const auto start : {&DesktopTerminal::run, &DesktopTerminal::type}) {
        DesktopTerminal tried = terminal();
        ASSERT_TRUE((tried.*start)(command).isOk());
        ASSERT_TRUE(waitUntil([&] { return !content(QStringLiteral("record")).isEmpty(); }));
        const QByteArray record = content(QStringLiteral("record"));
        EXPECT_TRUE(record.startsWith("[-e][" QUORVEL_TERMINAL_HELPER "][" +
                                      path(QStringLiteral("commands/")).toLocal8Bit()));
        EXPECT_EQ(record.count('['), 3);
        EXPECT_EQ(content(QStringLiteral("record.mode")), "600\n");
        const QByteArray task = start == &DesktopTerminal::run ? "run" : "type";
        EXPECT_EQ(content(QStringLiteral("record.file")), task + "\nthe note\n" + command.toUtf8());
        QFile::remove(path(QStringLiteral("record")));
    }
}

TEST_F(DesktopTerminalTest, SaysWhyNothingStarted) {
    const auto problem = [&](const QString& helper = QStringLiteral(QUORVEL_TERMINAL_HELPER)) {
        return terminal(helper).run(QStringLiteral("ls")).problem;
    };
    EXPECT_EQ(problem(), TerminalProblem::noTerminal);
    addProgram(QStringLiteral("xterm"), "#!/not/there\n");
    EXPECT_EQ(problem(path(QStringLiteral("no helper"))), TerminalProblem::noHelper);
    EXPECT_EQ(problem(), TerminalProblem::notStarted);
    EXPECT_TRUE(QDir(path(QStringLiteral("commands"))).isEmpty()) << "the file is taken back";
    EXPECT_EQ(terminal().run(QString(QChar(u'\0'))).problem, TerminalProblem::unusableCommand);
    QDir(path(QStringLiteral("commands"))).removeRecursively();
    QFile(path(QStringLiteral("commands"))).open(QIODevice::WriteOnly);
    EXPECT_EQ(problem(), TerminalProblem::noCommandFile);
}

TEST_F(DesktopTerminalTest, FilesThatNobodyTookGo) {
    addProgram(QStringLiteral("xterm"));
    DesktopTerminal tried = terminal();
    const QDir folder(path(QStringLiteral("commands")));
    ASSERT_TRUE(tried.run(QStringLiteral("ls")).isOk());
    ASSERT_EQ(folder.entryList(QDir::Files).size(), 1);
    QFile left(folder.filePath(folder.entryList(QDir::Files).first()));
    ASSERT_TRUE(left.open(QIODevice::ReadWrite));
    left.setFileTime(QDateTime::currentDateTime().addSecs(-600), QFile::FileModificationTime);
    left.close();
    ASSERT_TRUE(tried.run(QStringLiteral("ls")).isOk());
    EXPECT_EQ(folder.entryList(QDir::Files).size(), 1);
    EXPECT_FALSE(left.exists());
}

TEST_F(DesktopTerminalTest, ACommandArrivesInARealTerminal) {
    environment.insert(QStringLiteral("TERMINAL"), QStringLiteral("xterm"));
    environment.insert(QStringLiteral("PATH"), QStringLiteral("/usr/bin:/bin"));
    environment.insert(QStringLiteral("RECORD"), path(QStringLiteral("record")));
    const QString command =
        QStringLiteral("printf '%s|' \"'; rm -rf ~ #\" '$(reboot)' '\\ \u00fc' >\"$RECORD\"; ");
    const QByteArray expected = "'; rm -rf ~ #|$(reboot)|\\ \xc3\xbc|";
    const auto isRecorded = [&] { return content(QStringLiteral("record")) == expected; };
    ASSERT_TRUE(terminal().run(command + QStringLiteral("kill $PPID")).isOk());
    EXPECT_TRUE(waitUntil(isRecorded)) << content(QStringLiteral("record")).toStdString();
    QFile::remove(path(QStringLiteral("record")));
    ASSERT_TRUE(terminal().type(command + QStringLiteral("exit")).isOk());
    EXPECT_TRUE(waitUntil([&] { // the user presses the key until the command is there
        testDesktop().run(QStringLiteral("xdotool"),
                          {QStringLiteral("key"), QStringLiteral("Return")});
        return isRecorded();
    }));
    EXPECT_TRUE(QDir(path(QStringLiteral("commands"))).isEmpty());
}

} // namespace

} // namespace quorvel
