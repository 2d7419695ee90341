#include "desktop/MenuDesktopTest.h"

namespace quorvel {

namespace {

class HotKeysTest : public MenuDesktopTest {
protected:
    /// A stored shortcut with these modifier bits.
    static QByteArray shortcut(const QByteArray& key, int modifiers) {
        const QByteArray bits = QByteArray::number(modifiers);
        const QByteArray json = R"({"key":")" + key + R"(","modifiersRawValue":)" + bits + '}';
        return '"' + json.toBase64() + '"';
    }
};

TEST_F(HotKeysTest, clipsArePastedWithoutTheMenu) {
    begin(TrayHost::none);
    copy({QStringLiteral("third\n"), QStringLiteral("second\n"), QStringLiteral("first\n")});
    const QString file = path(QStringLiteral("typed"));
    const auto terminal = startTerminalThatWrites(file);
    const struct {
        const char* keys;
        QByteArray pasted;
        QByteArray clipboard; ///< Afterwards: with Alt it comes back.
    } steps[]{
        {"ctrl+super+2", "second\n", "second\n"},
        {"ctrl+super+3", "third\n", "third\n"},
        {"ctrl+super+9", "", "third\n"},
        {"ctrl+super+shift+3", "first\n", "first\n"},
        {"ctrl+super+alt+2", "third\n", "first\n"},
        {"ctrl+shift+v", "first\n", "first\n"},
        {"ctrl+super+alt+shift+3", "second\n", "first\n"},
    };
    QByteArray expected;
    for (const auto& [keys, pasted, left] : steps) {
        SCOPED_TRACE(keys);
        press(QString::fromLatin1(keys));
        expected += pasted;
        ASSERT_TRUE(waitUntil([&] { return content(file) == expected; }))
            << content(file).constData();
        ASSERT_TRUE(waitUntil([&] { return clipboard() == left; }));
    }
}

/// As a hand does it: the keys stay down for a while, longer than anybody waits for them.
TEST_F(HotKeysTest, theKeysMayBeHeldWhileTheClipboardIsKept) {
    begin(TrayHost::none);
    copy({QStringLiteral("second"), QStringLiteral("first")});
    const QString file = path(QStringLiteral("edited.txt"));
    put(file, {});
    const auto editor =
        startInFront(QStringLiteral("featherpad"), {file}, QStringLiteral("featherpad"));
    const QStringList keys{QStringLiteral("ctrl"), QStringLiteral("super"), QStringLiteral("alt"),
                           QStringLiteral("2")};
    for (const QString& key : keys)
        xdotool({QStringLiteral("keydown"), key});
    xdotool({QStringLiteral("sleep"), QStringLiteral("0.5")});
    for (const QString& key : keys)
        xdotool({QStringLiteral("keyup"), key});
    EXPECT_TRUE(waitUntil([&] {
        press(QStringLiteral("ctrl+s"));
        return !content(file).isEmpty();
    }));
    EXPECT_EQ(content(file).trimmed(), "second");
    EXPECT_TRUE(waitUntil([&] { return clipboard() == "first"; }));
}

TEST_F(HotKeysTest, theStatusTellsWhatBecameOfEachKey) {
    constexpr int control = 0x40000, superShift = 0x120000;
    begin(TrayHost::none, "{\"openMenuHotKey\": " + shortcut("e", 0) +
                              ", \"pastePlainTextHotKey\": " + shortcut("V", superShift) +
                              ", \"openTranslateHotKey\": " + shortcut("t", control) + '}');
    EXPECT_EQ(stateOf("openMenuHotKey"), QStringLiteral("bound"));
    EXPECT_EQ(hotKey("openMenuHotKey")[QStringLiteral("shortcut")], QStringLiteral("Super+Shift+V"))
        << "a bare letter is no shortcut for all programs";
    EXPECT_EQ(stateOf("pastePlainTextHotKey"), QStringLiteral("taken"));
    EXPECT_EQ(hotKey("pastePlainTextHotKey")[QStringLiteral("takenBy")],
              QStringLiteral("openMenuHotKey"));
    EXPECT_EQ(stateOf("openTranslateHotKey"), QStringLiteral("off"));
    EXPECT_EQ(stateOf("cycleKeyboardLayoutHotKey"), QStringLiteral("off")) << "there is one layout";
    EXPECT_EQ(stateOf("recentClip10"), QStringLiteral("bound"));
    EXPECT_EQ(hotKey("recentClip10")[QStringLiteral("shortcut")], QStringLiteral("Super+Ctrl+0"));
    EXPECT_TRUE(program().errors().contains("[Quorvel HotKey] registration failed id=4 status=10"))
        << program().errors().constData();
    const QByteArray lines = this->control({QStringLiteral("status")}).output;
    EXPECT_TRUE(lines.contains("\n  name: recentClip1, shortcut: Super+Ctrl+1, state: bound\n"))
        << lines.constData();
}

} // namespace

} // namespace quorvel
