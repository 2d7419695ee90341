#include "support/FakeHotKeyCenter.h"
#include "support/ManualTime.h"
#include "support/QtPrinting.h"
#include "ui/UiDesktop.h"
#include "ui/recorder/HotKeyForm.h"

#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace quorvel {

namespace {

constexpr Modifiers superShift = Modifier::command | Modifier::shift;

class ShortcutRecorderTest : public ::testing::Test {
protected:
    ShortcutRecorderTest() {
        for (const ConfigurableHotKey& hotKey : configurableHotKeys)
            hotKeys.setHandling(hotKey.id, GlobalHotKeys::Handling::handled);
        hotKeys.registerAll();
        form = std::make_unique<HotKeyForm>(
            HotKeyForm::Parts{strings, icons, center, preferences, store, hotKeys});
        form->show();
        form->activateWindow();
        EXPECT_TRUE(waitUntil([this] { return form->isActiveWindow(); }));
        recorder().setFocus();
    }

    ShortcutRecorder& recorder(HotKeyId id = HotKeyId::openMenu) { return *form->recorder(id); }
    ChordField& field(HotKeyId id = HotKeyId::openMenu) {
        return *recorder(id).findChild<ChordField*>();
    }
    QAbstractButton& resetButton() { return *recorder().findChild<QToolButton*>(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&field(), key, modifiers);
    }
    SnippetShortcut stored() { return preferences.hotKey(keys::openMenuHotKey); }

    QTemporaryDir folder;
    testing::ManualClock clock;
    testing::ManualDisk disk;
    PreferenceStore store{folder.filePath(QStringLiteral("preferences.json")), clock, disk};
    Preferences preferences{store};
    FakeHotKeyCenter center;
    GlobalHotKeys hotKeys{center, preferences, store};
    StringTable strings = StringTable::forLanguage(QStringLiteral("en"));
    Icons icons;
    std::unique_ptr<HotKeyForm> form;
};

TEST_F(ShortcutRecorderTest, keysArePressedStoredAndRegisteredAtOnce) {
    const struct {
        const char* how;
        std::function<void()> begin;
    } ways[]{
        {"a click", [this] { QTest::mouseClick(&field(), Qt::LeftButton); }},
        {"Enter", [this] { press(Qt::Key_Return); }},
        {"Space", [this] { press(Qt::Key_Space); }},
    };
    char key = 'k';
    for (const auto& [how, begin] : ways) {
        SCOPED_TRACE(how);
        begin();
        ASSERT_TRUE(recorder().isRecording());
        EXPECT_FALSE(center.press('a', superShift)) << "no hot key acts meanwhile";
        press(Qt::Key(key - 'a' + Qt::Key_A), Qt::ControlModifier | Qt::AltModifier);
        EXPECT_FALSE(recorder().isRecording());
        EXPECT_EQ(stored(), (SnippetShortcut{QString(QLatin1Char(key)), 0xC0000}));
        EXPECT_TRUE(center.press(KeyPosition(key), Modifier::control | Modifier::option));
        EXPECT_TRUE(center.press('a', superShift));
        ++key;
    }
}

TEST_F(ShortcutRecorderTest, whatCannotBeChosenIsSaidAndAnotherTryIsFree) {
    const auto control = Qt::ControlModifier;
    const auto controlSuper = Qt::ControlModifier | Qt::MetaModifier;
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char* part; ///< Of what is said.
    } cases[]{
        {Qt::Key_K, {}, "Hold Ctrl, Alt or Super"},
        {Qt::Key_K, Qt::ShiftModifier, "Hold Ctrl, Alt or Super"},
        {Qt::Key_C, control, "need Ctrl+C themselves"},
        {Qt::Key_V, control | Qt::ShiftModifier, "Already used: Paste as plain text."},
        {Qt::Key_5, controlSuper, "Already used: Paste recent clip 5."},
        {Qt::Key_0, controlSuper | Qt::AltModifier, "Already used: Paste recent clip 10."},
        {Qt::Key_F5, control, "This key cannot be used"},
        {Qt::Key_Return, {}, "This key cannot be used"},
        {Qt::Key_Delete, control, "This key cannot be used"},
    };
    press(Qt::Key_Return);
    for (const auto& [key, modifiers, part] : cases) {
        press(key, modifiers);
        EXPECT_TRUE(recorder().message().contains(QString::fromLatin1(part)))
            << part << ": " << qPrintable(recorder().message());
        EXPECT_TRUE(recorder().isRecording());
    }
    press(Qt::Key_5, Qt::ControlModifier);
    EXPECT_EQ(stored(), (SnippetShortcut{QStringLiteral("5"), 0x40000}));
    EXPECT_EQ(recorder().message(), QString());
}

TEST_F(ShortcutRecorderTest, whatIsSaidIsNeverCut) {
    QLabel* said = nullptr;
    for (QLabel* label : recorder().findChildren<QLabel*>())
        if (label->wordWrap())
            said = label;
    ASSERT_NE(said, nullptr);
    const auto isWhole = [said] {
        return said->isVisible() && said->height() >= said->heightForWidth(said->width());
    };
    for (const int width : {400, 330, 600}) {
        SCOPED_TRACE(width);
        form->resize(width, form->height());
        press(Qt::Key_Return);
        EXPECT_TRUE(waitUntil(isWhole)) << said->height();
        press(Qt::Key_C, Qt::ControlModifier);
        EXPECT_TRUE(waitUntil(isWhole)) << said->height();
        press(Qt::Key_Escape);
    }
}

TEST_F(ShortcutRecorderTest, escapeTabAndLosingTheFocusChangeNothing) {
    QSignalSpy ended(&recorder(), &ShortcutRecorder::recordingEnded);
    const std::function<void()> ways[]{
        [this] { press(Qt::Key_Escape); },
        [this] { press(Qt::Key_Tab); },
        [this] { recorder(HotKeyId::appendSelection).setFocus(); },
        [this] { QTest::mouseClick(&field(), Qt::LeftButton); },
        [this] { recorder().setEnabled(false); },
        [this] { form->hide(); },
    };
    int times = 0;
    for (const auto& leave : ways) {
        SCOPED_TRACE(times);
        recorder().setFocus();
        QTest::mouseClick(&field(), Qt::LeftButton);
        ASSERT_TRUE(recorder().isRecording());
        leave();
        EXPECT_FALSE(recorder().isRecording());
        EXPECT_EQ(ended.size(), ++times);
        EXPECT_TRUE(center.press('v', superShift)) << "the hot keys are back";
        recorder().setEnabled(true);
    }
    EXPECT_TRUE(store.value(QString::fromLatin1(keys::openMenuHotKey.name)).isUndefined());
}

TEST_F(ShortcutRecorderTest, backspaceAndTheButtonGoBackToTheDefault) {
    const SnippetShortcut byDefault = stored();
    EXPECT_FALSE(resetButton().isVisible());
    for (const bool byKey : {true, false}) {
        preferences.set(keys::openMenuHotKey, {QStringLiteral("k"), 0x40000});
        EXPECT_EQ(field().caps(), QStringList({QStringLiteral("Ctrl"), QStringLiteral("K")}));
        EXPECT_TRUE(resetButton().isVisible());
        if (byKey) {
            press(Qt::Key_Return);
            press(Qt::Key_Backspace);
        } else {
            resetButton().click();
        }
        EXPECT_EQ(stored(), byDefault);
        EXPECT_FALSE(resetButton().isVisible());
        EXPECT_TRUE(store.value(QString::fromLatin1(keys::openMenuHotKey.name)).isUndefined());
    }
    preferences.set(keys::openMenuHotKey, {QStringLiteral("k"), 0x40000});
    preferences.set(keys::appendSelectionHotKey, byDefault);
    resetButton().click();
    EXPECT_EQ(stored().key, QStringLiteral("k")) << "the default belongs to another one now";
    EXPECT_TRUE(recorder().message().contains(QStringLiteral("Add the selection")));
}

TEST_F(ShortcutRecorderTest, heldModifiersAreShownWhileTheyAreHeld) {
    press(Qt::Key_Return);
    const QStringList none;
    EXPECT_EQ(field().caps(), none);
    QTest::keyPress(&field(), Qt::Key_Super_L);
    EXPECT_EQ(field().caps(), QStringList(QStringLiteral("Super")));
    // What X11 calls the Alt key while Shift is held.
    constexpr quint32 metaLeft = 0xffe7;
    QKeyEvent meta(QEvent::KeyPress, Qt::Key_Meta, Qt::ShiftModifier, 64, metaLeft, 0);
    QCoreApplication::sendEvent(&field(), &meta);
    EXPECT_EQ(field().caps(), QStringList({QStringLiteral("Alt"), QStringLiteral("Shift")}));
    QTest::keyRelease(&field(), Qt::Key_Shift, Qt::ShiftModifier);
    EXPECT_EQ(field().caps(), none);
    press(Qt::Key_CapsLock);
    EXPECT_TRUE(recorder().isRecording());
}

TEST_F(ShortcutRecorderTest, theKeyIsNamedByItsPlace) {
    press(Qt::Key_Return);
    // A Cyrillic letter, on the key that is found by this character.
    QKeyEvent letter(QEvent::KeyPress, Qt::Key(0x041C), Qt::ControlModifier, 'y', 0x6cd, 0,
                     QStringLiteral("\u043C"));
    QCoreApplication::sendEvent(&field(), &letter);
    EXPECT_EQ(recorder().message(),
              strings.format(QStringLiteral("recorder.reserved"), QStringLiteral("Ctrl+Y")));
    QKeyEvent free(QEvent::KeyPress, Qt::Key(0x041C), Qt::ControlModifier, 'j', 0x6cd, 0);
    QCoreApplication::sendEvent(&field(), &free);
    EXPECT_EQ(stored(), (SnippetShortcut{QStringLiteral("j"), 0x40000}));
}

TEST_F(ShortcutRecorderTest, whatOthersHaveIsSaidAndHeardByItsName) {
    EXPECT_EQ(field().accessibleName(), QStringLiteral("Open the menu: Super+Shift+V"));
    center.take('j', Modifier::control);
    press(Qt::Key_Return);
    EXPECT_EQ(field().accessibleDescription(), strings.text(QStringLiteral("recorder.hint")));
    press(Qt::Key_J, Qt::ControlModifier);
    EXPECT_EQ(recorder().message(), strings.text(QStringLiteral("recorder.takenElsewhere")));
    EXPECT_EQ(field().accessibleDescription(), recorder().message());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&field())->role(), QAccessible::Button);
    center.removeKey(u'q');
    preferences.set(keys::openMenuHotKey, {QStringLiteral("q"), 0x80000});
    EXPECT_EQ(recorder().message(), strings.text(QStringLiteral("recorder.noSuchKey")));
}

TEST_F(ShortcutRecorderTest, realKeysReachItAlsoThoseThatOthersHave) {
    xdotool({QStringLiteral("key"), QStringLiteral("space")});
    ASSERT_TRUE(waitUntil([&] { return recorder().isRecording(); }));
    // The window manager would go to another desktop. The fake names a key by its code.
    pressKeys("ctrl+alt+Right");
    constexpr char16_t rightArrow = 114;
    ASSERT_TRUE(waitUntil([&] { return !recorder().isRecording(); }));
    EXPECT_EQ(stored(), (SnippetShortcut{QString(QChar(rightArrow)), 0xC0000}));
    EXPECT_TRUE(form->isActiveWindow());
}

} // namespace

} // namespace quorvel
