#include "desktop/MenuDesktopTest.h"

#include <QStandardPaths>

namespace quorvel {

namespace {

/// A program to paste into, and how to learn what has arrived there.
struct Editor {
    const char* name;
    const char* program;
    std::vector<const char*> arguments; ///< FILE, HOME and SUPPORT in them stand for places.
    const char* windowClass;
    enum class Reading { file, savedFile, title } reading = Reading::file;
};

void PrintTo(const Editor& editor, std::ostream* out) {
    *out << editor.name;
}

/// Ten clips, the oldest one pasted by its number again and again: so each in its turn.
constexpr int clipCount = 10;

int pasteCount() {
    const int wanted = qEnvironmentVariableIntValue("QUORVEL_PASTES");
    return wanted > 0 ? wanted : 12;
}

class ManyPastesTest : public MenuDesktopTest, public testing::WithParamInterface<Editor> {
protected:
    QString file() { return path(QStringLiteral("pasted.txt")); }

    std::unique_ptr<ChildProgram> startEditor() {
        QStringList arguments;
        for (const char* argument : GetParam().arguments)
            arguments.append(QString::fromLatin1(argument));
        arguments.replaceInStrings(QStringLiteral("FILE"), file());
        arguments.replaceInStrings(QStringLiteral("HOME"), desktop().home());
        arguments.replaceInStrings(QStringLiteral("SUPPORT"),
                                   QStringLiteral(QUORVEL_TEST_PROGRAMS));
        put(file(), {});
        return startInFront(QString::fromLatin1(GetParam().program), arguments,
                            QString::fromLatin1(GetParam().windowClass));
    }

    qint64 fetched() {
        return status()[QStringLiteral("pastes")].toObject()[QStringLiteral("fetched")].toInteger();
    }

    /// By the hot key, with all that may be in the way of it in turn.
    void paste(int round) {
        const QStringList chord{QStringLiteral("key"), QStringLiteral("ctrl+super+0")};
        switch (round % 4) {
        case 1: // Held for longer than the program waits.
            xdotool({QStringLiteral("keydown"), QStringLiteral("ctrl"), QStringLiteral("keydown"),
                     QStringLiteral("super"), QStringLiteral("key"), QStringLiteral("0"),
                     QStringLiteral("sleep"), QStringLiteral("0.4"), QStringLiteral("keyup"),
                     QStringLiteral("super"), QStringLiteral("keyup"), QStringLiteral("ctrl")});
            break;
        case 2:
            press(QStringLiteral("Caps_Lock"));
            xdotool(chord);
            break;
        case 3:
            press(QStringLiteral("Num_Lock"));
            xdotool(chord);
            break;
        default:
            xdotool(chord);
        }
    }
    void releaseLocks(int round) {
        if (round % 4 == 2)
            press(QStringLiteral("Caps_Lock"));
        if (round % 4 == 3)
            press(QStringLiteral("Num_Lock"));
    }

    QByteArray arrived(const QString& window) {
        switch (GetParam().reading) {
        case Editor::Reading::savedFile:
            press(QStringLiteral("ctrl+s"));
            [[fallthrough]];
        case Editor::Reading::file:
            return content(file()).trimmed().replace('\n', ',');
        case Editor::Reading::title:
            return xdotool({QStringLiteral("getwindowname"), window})
                .output.trimmed()
                .split(' ')
                .first();
        }
        return {};
    }

    /// Two windows beside the target, each in front before the next one is started: one that
    /// came up late would take the focus from the target.
    std::vector<std::unique_ptr<ChildProgram>> startOtherWindows() {
        std::vector<std::unique_ptr<ChildProgram>> others;
        for (const QString& windowClass :
             {QStringLiteral("BesideOne"), QStringLiteral("BesideTwo")})
            others.push_back(startInFront(QStringLiteral("xterm"),
                                          {QStringLiteral("-class"), windowClass}, windowClass));
        return others;
    }
    /// They go up and down, and the target keeps the focus.
    std::unique_ptr<ChildProgram> shuffleOtherWindows() {
        return desktop().start(
            QStringLiteral("sh"),
            {QStringLiteral("-c"),
             QStringLiteral("while sleep 0.1; do for w in $(xdotool search --class Beside); do "
                            "xdotool windowraise $w windowlower $w; done; done")});
    }
};

} // namespace

TEST_P(ManyPastesTest, allArriveOnceInOrderAndNowhereElse) {
    if (QStandardPaths::findExecutable(QString::fromLatin1(GetParam().program)).isEmpty())
        GTEST_SKIP() << GetParam().program << " is not installed";
    begin(TrayHost::none, R"({"clipboardHistoryLimit": 10})");
    QStringList clips;
    for (int i = clipCount; i > 0; --i)
        clips.append(QStringLiteral("clip-%1\n").arg(i));
    copy(clips);
    const auto others = startOtherWindows();
    const auto editor = startEditor();
    const auto shuffling = shuffleOtherWindows();
    const QString window =
        QString::fromLatin1(xdotool({QStringLiteral("getactivewindow")}).output.trimmed());
    if (GetParam().reading == Editor::Reading::title) {
        ASSERT_TRUE(waitUntil([&] {
            press(QStringLiteral("shift"));
            return arrived(window) == "ready";
        }));
    }
    QByteArrayList expected;
    for (int round = 0; round < pasteCount(); ++round) {
        expected.append(clips.at(round % clipCount).trimmed().toLatin1());
        paste(round);
        const bool isFetched = waitUntil([&] { return fetched() == round + 1; });
        ASSERT_TRUE(isFetched)
            << "paste " << round << ": "
            << QJsonDocument(status()[QStringLiteral("pastes")].toObject()).toJson().constData();
        releaseLocks(round);
    }
    EXPECT_TRUE(waitUntil([&] { return arrived(window) == expected.join(','); }))
        << arrived(window).constData();
    EXPECT_EQ(this->clips().size(), clipCount);
}

INSTANTIATE_TEST_SUITE_P(
    Editors, ManyPastesTest,
    testing::Values(
        Editor{"xterm", "xterm", {"-e", "sh", "-c", "cat > FILE"}, "XTerm"},
        Editor{"vte", "lxterminal", {"--no-remote", "-e", "sh -c 'cat > FILE'"}, "Lxterminal"},
        Editor{"gtk3",
               "mousepad",
               {"--disable-server", "FILE"},
               "Mousepad",
               Editor::Reading::savedFile},
        Editor{"qt5", "featherpad", {"FILE"}, "featherpad", Editor::Reading::savedFile},
        Editor{"gtk4", "/usr/bin/python3", {"SUPPORT/gtk4_editor.py", "FILE"}, "Gtk4Editor"},
        Editor{"chromium",
               "chromium",
               {"--no-sandbox", "--no-first-run", "--user-data-dir=HOME/chromium",
                "--app=file://SUPPORT/editor.html"},
               "Chromium",
               Editor::Reading::title}),
    [](const auto& editor) { return std::string(editor.param.name); });

} // namespace quorvel
