#include "CoreRig.h"
#include "FakeHotKeyCenter.h"
#include "FakeKeyPoster.h"
#include "FakeKeyboardLayouts.h"
#include "FakeSelectedText.h"
#include "FakeUi.h"

#include "app/AppDelegate.h"
#include "clipboard/EntryCoder.h"
#include "control/ControlClient.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QThread>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace quorvel::testing {

/// A whole program on fakes.
struct Program {
    explicit Program(const QString& home)
        : paths{home + QStringLiteral("/data/clipboard-history.json"),
                home + QStringLiteral("/data/clipboard-history.journal"),
                home + QStringLiteral("/data/snippets.json"),
                home + QStringLiteral("/former"),
                home + QStringLiteral("/config/preferences.json"),
                home + QStringLiteral("/run"),
                home + QStringLiteral("/run/control"),
                home + QStringLiteral("/run/lock")}
        , delegate(
              {paths, clock, mainQueue, disk, StringTable::forLanguage(QStringLiteral("en")), 1},
              {QStringLiteral("fake"), pasteboard, workspace, keyPoster, selectedText, hotKeys,
               layouts, statusItem, menu, textEditor, desktop, terminal, appearance,
               textServices}) {}

    void copy(const QString& text) {
        pasteboard.copyFromOutside(text);
        mainQueue.settle();
    }

    DataPaths paths;
    ManualClock clock;
    ManualMainQueue mainQueue{clock};
    ManualDisk disk;
    FakePasteboard pasteboard;
    FakeWorkspace workspace;
    FakeKeyPoster keyPoster;
    FakeSelectedText selectedText{pasteboard};
    FakeHotKeyCenter hotKeys;
    FakeKeyboardLayouts layouts;
    FakeStatusItem statusItem;
    FakeMenuRenderer menu;
    FakeTextEditor textEditor;
    FakeDesktop desktop;
    FakeTerminal terminal;
    FakeAppearance appearance;
    FakeTextServices textServices;
    AppDelegate delegate;
};

class AppDelegateTest : public ::testing::Test {
protected:
    /// Asks over the socket, from a thread of its own, while the main loop runs here.
    static ControlReply ask(const Program& program, const QString& command,
                            const QJsonObject& arguments = {}) {
        std::optional<ControlReply> reply;
        QThread* client = QThread::create([&] {
            reply = sendControlRequest(program.paths.controlSocket, {command, arguments});
        });
        client->start();
        while (!client->isFinished())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        client->wait();
        delete client;
        return reply.value_or(ControlReply{{}, QStringLiteral("nobody there")});
    }

    static MenuItem row(const QList<MenuItem>& tree, const QString& title) {
        for (const MenuItem& item : tree)
            if (item.title == title)
                return item;
        ADD_FAILURE() << qPrintable(title);
        return {};
    }

    QTemporaryDir home;
};

TEST_F(AppDelegateTest, StartsAndEndsInOrder) {
    Program program(home.path());
    QStringList steps;
    QObject::connect(&program.delegate, &AppDelegate::stepDone,
                     [&](const QString& name) { steps.append(name); });
    ASSERT_TRUE(program.delegate.applicationDidFinishLaunching());
    EXPECT_EQ(steps.join(u'|'), QStringLiteral("preferences|accessibility trust|status item|"
                                               "data folder|snippets|history|"
                                               "pasteboard watcher|focus tracker|hot keys|menu|"
                                               "control socket"));
    EXPECT_FALSE(program.statusItem.shownToolTip.isEmpty());
    program.mainQueue.advance(1s);
    EXPECT_EQ(program.menu.warmUps, 1);
    steps.clear();
    program.delegate.applicationWillTerminate();
    program.delegate.applicationWillTerminate();
    EXPECT_EQ(steps.join(u'|'),
              QStringLiteral("control socket|pasteboard watcher and focus tracker|"
                             "history|snippets|menu|hot keys"));
    EXPECT_EQ(program.hotKeys.registrationCount(), 0);
}

TEST_F(AppDelegateTest, ACopyDuringTheStartLandsOnTheLoadedHistory) {
    {
        Program before(home.path());
        before.delegate.applicationDidFinishLaunching();
        before.copy(QStringLiteral("stored"));
        before.delegate.applicationWillTerminate();
    }
    Program program(home.path());
    program.pasteboard.copyFromOutside(QStringLiteral("early"));
    program.delegate.applicationDidFinishLaunching();
    program.mainQueue.settle();
    const auto& entries = program.delegate.history().recentClipboard();
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries.first().text, QStringLiteral("early"));
    EXPECT_EQ(entries.last().text, QStringLiteral("stored"));
}

TEST_F(AppDelegateTest, TheLibraryOfTheFormerFolderIsKept) {
    const QDir root(home.path());
    ASSERT_TRUE(root.mkpath(QStringLiteral("former")));
    QFile library(root.filePath(QStringLiteral("former/snippets.json")));
    ASSERT_TRUE(library.open(QIODevice::WriteOnly));
    library.write(R"({"groups": [], "rootSnippets": [
        {"id": "0D3B7A52-6C1E-4E0B-9F55-2A6F9C3D1E01", "title": "t", "text": "x"}]})");
    library.close();
    Program program(home.path());
    ASSERT_TRUE(program.delegate.applicationDidFinishLaunching());
    ASSERT_EQ(program.delegate.store().rootSnippets().size(), 1);
    EXPECT_EQ(program.delegate.store().rootSnippets().first().text, QStringLiteral("x"));
    EXPECT_FALSE(root.exists(QStringLiteral("former")));
}

TEST_F(AppDelegateTest, ANewSnippetThatIsNotOnTheDiskIsTold) {
    QFile blocker(home.filePath(QStringLiteral("data")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly)); // a file where the folder should be
    Program program(home.path());
    program.delegate.applicationDidFinishLaunching();
    program.delegate.store().addGroup(QStringLiteral("G"));
    program.mainQueue.settle();
    program.delegate.store().addFromClipboard(QStringLiteral("s"));
    program.mainQueue.settle();
    program.copy(QStringLiteral("refused"));
    emit program.menu.chosen(
        {MenuAction::addFromClipboardToGroup, QUuid::createUuid().toString()}); // There is none.
    ASSERT_EQ(program.desktop.messages.size(), 3);
    EXPECT_EQ(program.desktop.messages.removeDuplicates(), 0) << "what is not there is not unsaved";
    const QJsonObject status = ask(program, QStringLiteral("status")).result.toObject();
    EXPECT_TRUE(
        status.value(QStringLiteral("problems")).toObject().contains(QStringLiteral("snippets")));
    EXPECT_EQ(status.value(QStringLiteral("snippets")), QJsonValue(1));
}

TEST_F(AppDelegateTest, ASecondInstanceShowsTheFirstAndEnds) {
    Program first(home.path());
    ASSERT_TRUE(first.delegate.applicationDidFinishLaunching());
    bool secondRuns = true;
    QThread* second = QThread::create([&] {
        Program program(home.path());
        secondRuns = program.delegate.applicationDidFinishLaunching();
    });
    second->start();
    while (!second->isFinished())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    second->wait();
    delete second;
    EXPECT_FALSE(secondRuns);
    EXPECT_TRUE(first.menu.isOpen());
}

TEST_F(AppDelegateTest, TheMenuPastesAndTheFooterActs) {
    Program program(home.path());
    program.delegate.applicationDidFinishLaunching();
    program.copy(QStringLiteral("a"));
    program.copy(QStringLiteral("b"));
    emit program.statusItem.activated();
    program.menu.choose(row(program.menu.tree, QStringLiteral("a")));
    program.mainQueue.advance(1s);
    EXPECT_EQ(program.pasteboard.string(), QStringLiteral("a"));
    EXPECT_EQ(program.keyPoster.posts().size(), 1);

    EXPECT_TRUE(program.hotKeys.press('v', Modifier::command | Modifier::shift));
    EXPECT_EQ(program.menu.closingKey, quint32('v'));
    ASSERT_TRUE(program.menu.isOpen());
    program.menu.choose(program.menu.tree.last());
    EXPECT_EQ(program.desktop.openedFiles, QStringList(program.paths.preferencesFile));
    EXPECT_TRUE(QFile::exists(program.paths.preferencesFile));
}

TEST_F(AppDelegateTest, WithControlHeldAClipOrASnippetIsEditedFirst) {
    Program program(home.path());
    program.delegate.applicationDidFinishLaunching();
    const QUuid snippet = program.delegate.store().addFromClipboard(QStringLiteral("kept")).id;
    program.copy(QStringLiteral("a"));
    program.copy(QStringLiteral("b"));
    const auto choose = [&](const QString& title) {
        emit program.statusItem.activated();
        program.menu.hold(Modifier::control);
        program.menu.choose(row(program.menu.tree, title));
        program.menu.hold({});
        program.mainQueue.advance(1s);
        EXPECT_EQ(program.textEditor.shown.text, title);
        EXPECT_TRUE(program.textEditor.isOpen());
    };
    const auto uses = [&] { return program.delegate.store().snippet(snippet)->usageCount; };
    choose(QStringLiteral("kept"));
    program.textEditor.end(std::nullopt);
    program.mainQueue.advance(1s);
    EXPECT_EQ(program.pasteboard.string(), QStringLiteral("b"));
    EXPECT_EQ(uses(), 0);
    for (const QString& title : {QStringLiteral("kept"), QStringLiteral("a")}) {
        choose(title);
        program.textEditor.end(EditBeforePasteState{title + u'!'});
        program.mainQueue.advance(1s);
        EXPECT_EQ(program.pasteboard.string(), title + u'!');
    }
    EXPECT_EQ(uses(), 1);
    EXPECT_EQ(program.keyPoster.posts().size(), 2);
    choose(QStringLiteral("b"));
    program.delegate.applicationWillTerminate();
    EXPECT_FALSE(program.textEditor.isOpen());
}

TEST_F(AppDelegateTest, FailedPastesAreTold) {
    Program program(home.path());
    program.delegate.applicationDidFinishLaunching();
    program.copy(QStringLiteral("a"));
    program.keyPoster.setOutcome(PostOutcome::focusElsewhere);
    ask(program, QStringLiteral("paste"), {{QStringLiteral("position"), 1}});
    program.mainQueue.advance(1s);
    EXPECT_EQ(program.statusItem.notifications.size(), 1);
    program.keyPoster.setTrusted(false);
    ask(program, QStringLiteral("paste"), {{QStringLiteral("position"), 1}});
    EXPECT_EQ(program.desktop.messages.size(), 1);
}

TEST_F(AppDelegateTest, TheControlSocketAnswers) {
    Program program(home.path());
    program.delegate.applicationDidFinishLaunching();
    EXPECT_TRUE(
        ask(program, QStringLiteral("copy"), {{QStringLiteral("text"), QStringLiteral("hi\n")}})
            .isOk());
    const QJsonArray list = ask(program, QStringLiteral("list")).result.toArray();
    ASSERT_EQ(list.size(), 1);
    const QJsonObject clip = list.first().toObject();
    EXPECT_EQ(clip.value(QStringLiteral("text")), QJsonValue(QStringLiteral("hi\n")));
    EXPECT_EQ(clip.value(QStringLiteral("position")), QJsonValue(1));
    EXPECT_EQ(clip.value(QStringLiteral("copiedAt")),
              QJsonValue(QStringLiteral("2026-05-09T06:13:20.000Z")));
    EXPECT_EQ(program.pasteboard.string(), QStringLiteral("hi\n"));

    EXPECT_FALSE(ask(program, QStringLiteral("paste"), {{QStringLiteral("position"), 2}}).isOk());
    EXPECT_FALSE(ask(program, QStringLiteral("dance")).isOk());
    const QJsonObject status = ask(program, QStringLiteral("status")).result.toObject();
    EXPECT_EQ(status.value(QStringLiteral("clips")), QJsonValue(1));
    QSignalSpy quit(&program.delegate, &AppDelegate::quitRequested);
    EXPECT_TRUE(ask(program, QStringLiteral("quit")).isOk());
    program.mainQueue.settle();
    EXPECT_EQ(quit.size(), 1);
}

TEST_F(AppDelegateTest, PinningOverTheSocketMakesATimedPinLastBeyondTheStorageLimit) {
    Program program(home.path());
    program.delegate.applicationDidFinishLaunching();
    const auto& clips = program.delegate.history().recentClipboard();
    program.copy(QStringLiteral("kept"));
    emit program.menu.chosen({MenuAction::pinRecentSnippetForHour, clips.first().id.toString()});
    const int limit = Preferences::recentClipboardStorageMultiplier * 5;
    for (int i = 0; i < limit; ++i)
        program.copy(QString::number(i));
    ASSERT_EQ(clips.size(), limit + 1);
    EXPECT_TRUE(
        ask(program, QStringLiteral("pin"), {{QStringLiteral("position"), limit + 1}}).isOk());
    ASSERT_EQ(clips.size(), limit + 1);
    EXPECT_TRUE(clips.last().pinned);
    EXPECT_FALSE(clips.last().pinnedUntil.has_value());
}

/// What the control tool gets: the result as compact JSON, or "! error".
QString answer(const ControlReply& reply) {
    if (!reply.isOk())
        return QStringLiteral("! ") + reply.error;
    QJsonArray values{reply.result};
    return QString::fromUtf8(QJsonDocument(values).toJson(QJsonDocument::Compact));
}

TEST_F(AppDelegateTest, TheControlSocketReachesClips) {
    Program program(home.path());
    program.delegate.applicationDidFinishLaunching();
    for (const char* text : {"password: hunter2secret", "b", "Café"})
        program.copy(QString::fromUtf8(text));
    const auto at = [](int position) {
        return QJsonObject{{QStringLiteral("position"), position}};
    };
    const auto pins = [&] {
        QString marks;
        for (const RecentClipboardEntry& entry : program.delegate.history().recentClipboard())
            marks += entry.pinned ? u'*' : u'-';
        return marks;
    };
    const struct {
        const char* command;
        int position;
        const char* pins; ///< Afterwards; null when it is refused.
    } cases[]{{"pin", 2, "-*-"},   {"pin", 2, "-*-"},      {"unpin", 1, "-*-"}, {"unpin", 2, "---"},
              {"pin", 4, nullptr}, {"delete", 0, nullptr}, {"delete", 2, "--"}};
    for (const auto& [command, position, expected] : cases) {
        const auto reply = ask(program, QString::fromLatin1(command), at(position));
        EXPECT_EQ(reply.isOk(), expected != nullptr) << command << position;
        if (expected) {
            EXPECT_EQ(pins(), QString::fromLatin1(expected)) << command << position;
        }
    }
    const auto tool = [&](const char* name) {
        return answer(ask(program, QStringLiteral("transform"),
                          {{QStringLiteral("tool"), QString::fromLatin1(name)}}));
    };
    EXPECT_EQ(tool("plain"), QStringLiteral("[true]"));
    EXPECT_TRUE(tool("sideways").startsWith(u'!'));
    const auto search = [&](const char* text) {
        return answer(ask(program, QStringLiteral("search"),
                          {{QStringLiteral("text"), QString::fromLatin1(text)}}));
    };
    EXPECT_EQ(search("CAFE"), QStringLiteral("[[{\"kind\":\"clip\",\"position\":1,"
                                             "\"text\":\"Café\",\"title\":\"Café\"}]]"));
    EXPECT_TRUE(search("password").contains(QStringLiteral("password: ••••••")));
    EXPECT_EQ(search("hunter2"), QStringLiteral("[[]]"));
    EXPECT_TRUE(search(" ").startsWith(u'!'));
    EXPECT_FALSE(
        ask(program, QStringLiteral("show"), {{QStringLiteral("menu"), QStringLiteral("dinner")}})
            .isOk());
    EXPECT_TRUE(ask(program, QStringLiteral("show"),
                    {{QStringLiteral("menu"), QStringLiteral("translate")}})
                    .isOk());
    EXPECT_EQ(program.menu.tree.size(), 1);
}

TEST_F(AppDelegateTest, TheControlSocketTellsOfLayouts) {
    Program program(home.path());
    program.layouts.configure(
        {FakeKeyboardLayouts::layout(QStringLiteral("us"), QStringLiteral("ghbdtn")),
         FakeKeyboardLayouts::layout(QStringLiteral("ru"), QStringLiteral("привет"))});
    ASSERT_TRUE(program.delegate.applicationDidFinishLaunching());
    const auto reading = [&](const QString& text) {
        const auto reply =
            ask(program, QStringLiteral("layouts"), {{QStringLiteral("text"), text}});
        return QString::fromUtf8(
            QJsonDocument(reply.result.toObject()).toJson(QJsonDocument::Compact));
    };
    const QString start = QStringLiteral(R"({"active":"us","layouts":[{"id":"us","name":"US"},)"
                                         R"({"id":"ru","name":"RU"}],"source":)");
    EXPECT_EQ(reading(QStringLiteral("ghbdtn")),
              start + QStringLiteral(R"({"id":"us","name":"US"},"variants":[{"id":"ru",)"
                                     R"("likelihood":"likely","name":"RU","text":"привет"}]})"));
    EXPECT_EQ(reading(QStringLiteral("漢字")), start + QStringLiteral(R"(null,"variants":[]})"));
    EXPECT_EQ(reading(QStringLiteral(" ")), QStringLiteral("{}")) << "refused";
}

TEST_F(AppDelegateTest, TheControlSocketReachesSnippets) {
    Program program(home.path());
    program.delegate.applicationDidFinishLaunching();
    program.delegate.store().addGroup(QStringLiteral("mail"));
    const auto snippets = [&](const char* command, const QJsonObject& arguments = {}) {
        return answer(
            ask(program, QStringLiteral("snippets ") + QString::fromLatin1(command), arguments));
    };
    const auto add = [&](const char* text, const QJsonValue& group) {
        QJsonObject arguments{{QStringLiteral("text"), QString::fromLatin1(text)}};
        if (group.isString())
            arguments.insert(QStringLiteral("group"), group);
        return snippets("add", arguments);
    };
    EXPECT_FALSE(add("in the group", QStringLiteral("mail")).startsWith(u'!'));
    const QString id = add("at the root", {}).section(u'"', 1, 1);
    EXPECT_EQ(add("x", QStringLiteral("post")),
              QStringLiteral("! there is no group \"post\"; there are: \"mail\""));
    EXPECT_TRUE(add("", {}).startsWith(u'!'));
    EXPECT_TRUE(add(" \n", {}).startsWith(u'!'));
    const auto one = [](const QString& name) {
        return QJsonObject{{QStringLiteral("snippet"), name}};
    };
    EXPECT_EQ(snippets("paste", one(QStringLiteral("2"))), QStringLiteral("[true]"));
    EXPECT_EQ(program.pasteboard.string(), QStringLiteral("in the group"));
    EXPECT_EQ(program.delegate.store().groups().first().snippets.first().usageCount, 1);
    program.mainQueue.advance(5s); // Its target never asks.
    EXPECT_EQ(snippets("paste", one(id)), QStringLiteral("[true]"));
    EXPECT_EQ(program.pasteboard.string(), QStringLiteral("at the root"));
    for (const char* name : {"0", "3", "-1", "", "mail"})
        EXPECT_TRUE(snippets("remove", one(QString::fromLatin1(name))).startsWith(u'!')) << name;
    EXPECT_EQ(snippets("remove", one(id)), QStringLiteral("[true]"));
    EXPECT_TRUE(snippets("list").startsWith(QStringLiteral("[[{\"group\":\"mail\",")));
}

} // namespace quorvel::testing
