#include "support/FakePasteboard.h"
#include "support/QtPrinting.h"
#include "ui/UiDesktop.h"
#include "ui/editor/EditorText.h"
#include "ui/editor/QtTextEditor.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>

#include <gtest/gtest.h>

namespace quorvel {

namespace {

using namespace std::chrono_literals;

class TextEditorTest : public testing::Test {
protected:
    void present(const EditBeforePasteState& state) {
        m_editor.present(state, [this](const auto& edited) {
            m_edited = edited;
            ++m_answers;
        });
        ASSERT_TRUE(waitUntil([&] { return panel() && panel()->isActiveWindow(); }));
    }
    void present(const QString& text) { present(EditBeforePasteState{text}); }
    QWidget* panel() { return QApplication::activeWindow(); }
    QPlainTextEdit& field() { return *panel()->findChild<QPlainTextEdit*>(); }
    bool answers(int count = 1) {
        return waitUntil([&] { return m_answers == count; });
    }

    FakePasteboard m_pasteboard;
    QtTextEditor m_editor{StringTable::forLanguage(QStringLiteral("en")), m_pasteboard};
    std::optional<EditBeforePasteState> m_edited;
    int m_answers = 0;
};

TEST_F(TextEditorTest, takesTheKeyboardAndGivesBackWhatTheUserSets) {
    EditBeforePasteState state{QStringLiteral("b")};
    state.supportsRichPaste = true;
    present(state);
    pressKeys("a");
    ASSERT_TRUE(waitUntil([&] { return field().toPlainText() == u"ab"; }));
    // By mnemonics: the case, then the two check boxes.
    xdotool({QStringLiteral("key"), QStringLiteral("alt+s"), QStringLiteral("Down"),
             QStringLiteral("Down"), QStringLiteral("alt+r"), QStringLiteral("alt+l")});
    const auto boxes = panel()->findChildren<QCheckBox*>();
    ASSERT_EQ(boxes.size(), 2);
    ASSERT_TRUE(waitUntil([&] { return boxes[0]->isChecked() && !boxes[1]->isChecked(); }));
    pressKeys("ctrl+Return");
    ASSERT_TRUE(answers());
    ASSERT_TRUE(m_edited.has_value());
    EXPECT_EQ(m_edited->text, QStringLiteral("ab"));
    EXPECT_EQ(m_edited->caseMode, EditCaseMode::upper);
    EXPECT_TRUE(m_edited->trimCollapse);
    EXPECT_FALSE(m_edited->pasteAsPlainText);
}

TEST_F(TextEditorTest, aPanelThatIsCancelledOrClosedAnswersOnceWithNothing) {
    present(QStringLiteral("first"));
    pressKeys("x");
    pressKeys("Escape");
    ASSERT_TRUE(answers(1));
    EXPECT_FALSE(m_edited.has_value());
    present(QStringLiteral("second"));
    panel()->close();
    ASSERT_TRUE(answers(2));
    present(QStringLiteral("third"));
    m_editor.present({QStringLiteral("fourth")}, [this](const auto&) { ++m_answers; });
    m_editor.close();
    EXPECT_EQ(m_answers, 4);
    EXPECT_FALSE(m_edited.has_value());
}

TEST_F(TextEditorTest, everyControlIsReachedWithTheTabKey) {
    EditBeforePasteState state{QStringLiteral("text")};
    state.supportsRichPaste = true;
    present(state);
    QStringList reached;
    for (int i = 0; i < 6; ++i) {
        reached.append(QString::fromLatin1(panel()->focusWidget()->metaObject()->className()));
        panel()->focusWidget()->setProperty("reached", true);
        QWidget* before = panel()->focusWidget();
        pressKeys("Tab");
        ASSERT_TRUE(waitUntil([&] { return panel()->focusWidget() != before; }));
    }
    EXPECT_EQ(reached.join(u' '), QStringLiteral("QPlainTextEdit QComboBox QCheckBox QCheckBox "
                                                 "QPushButton QPushButton"));
    EXPECT_EQ(panel()->focusWidget(), &field()) << "and round again";
    EXPECT_EQ(field().toPlainText(), QStringLiteral("text"));
    pressKeys("Escape");
    EXPECT_TRUE(answers());
}

TEST_F(TextEditorTest, copiesCutsAndPastesByThePasteboardAlone) {
    const auto says = [&](const QString& text) {
        return waitUntil([&] { return field().toPlainText() == text; });
    };
    const QString endless = QString(EditorText::longestLine + 1, u'e');
    present(endless);
    m_pasteboard.copyFromOutside(QStringLiteral("1\n2"));
    for (const char* key : {"ctrl+a", "ctrl+c", "ctrl+End", "ctrl+x"})
        pressKeys(key);
    ASSERT_TRUE(waitUntil([&] { return m_pasteboard.string() == endless; })) << "as one line";
    m_pasteboard.copyFromOutside(QStringLiteral("1\n2"));
    for (const char* key : {"ctrl+a", "ctrl+v"})
        pressKeys(key);
    ASSERT_TRUE(says(QStringLiteral("1\n2")));
    for (const char* key : {"shift+Left", "shift+Delete", "shift+Insert"})
        pressKeys(key);
    ASSERT_TRUE(says(QStringLiteral("1\n2")));
    EXPECT_EQ(m_pasteboard.string(), QStringLiteral("2"));

    QContextMenuEvent asked(QContextMenuEvent::Mouse, {}, field().mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(field().viewport(), &asked);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    menu->findChild<QAction*>(QStringLiteral("edit-paste"))->trigger();
    EXPECT_EQ(field().toPlainText(), QStringLiteral("1\n22"));
    menu->close();
    EXPECT_FALSE(QGuiApplication::clipboard()->ownsClipboard());
    pressKeys("Escape");
    EXPECT_TRUE(answers());
}

TEST_F(TextEditorTest, aLongTextOpensWithoutAWaitAndIsCounted) {
    const QString line = QStringLiteral("a line of some words that says little\n");
    const QString endless = QStringLiteral("0123456789").repeated(500'000);
    QElapsedTimer timer;
    timer.start();
    const QString text = line.repeated(5'000'000 / line.size()) + endless;
    present(text);
    EXPECT_LT(timer.elapsed(), 2000);
    EXPECT_TRUE(field().isReadOnly()) << "until all of it is there";
    ASSERT_TRUE(waitUntil([&] { return !field().isReadOnly(); }));
    EXPECT_TRUE(field().toPlainText().startsWith(line + line));
    const auto isCounted = [&] {
        const auto labels = panel()->findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
            return label->text().startsWith(QStringLiteral("Characters: "));
        });
    };
    EXPECT_TRUE(waitUntil(isCounted));
    pressKeys("x");
    ASSERT_TRUE(waitUntil([&] { return field().document()->isModified(); }));
    pressKeys("ctrl+Return");
    ASSERT_TRUE(answers());
    EXPECT_TRUE(m_edited && m_edited->text == u'x' + text);
}

TEST(EditorText, GivesBackWhatWasNotTouched) {
    const QString endless = QString(EditorText::longestLine * 3, u'e');
    const struct {
        QString original;
        QString typed;
        QString result;
    } cases[] = {
        {QStringLiteral("a\r\nb\u00A0c\u2028d\r"), {}, QStringLiteral("a\r\nb\u00A0c\u2028d\r")},
        {QStringLiteral("b\u00A0c"), QStringLiteral("a"), QStringLiteral("ab\u00A0c")},
        {QStringLiteral("1\r\n2"), QStringLiteral("0\n"), QStringLiteral("0\r\n1\r\n2")},
        {QStringLiteral("1\n2"), QStringLiteral("\n"), QStringLiteral("\n1\n2")},
        {endless, {}, endless},
        {endless, QStringLiteral("a\n"), QStringLiteral("a\n") + endless},
        {QStringLiteral("x\n") + endless + QStringLiteral("\ny"), QStringLiteral("a"),
         QStringLiteral("ax\n") + endless + QStringLiteral("\ny")},
    };
    for (const auto& c : cases) {
        const EditorText text(c.original);
        QPlainTextEdit field;
        field.setPlainText(text.shown());
        for (QTextBlock block = field.document()->begin(); block.isValid(); block = block.next())
            EXPECT_LE(block.length(), EditorText::longestLine + 2);
        if (!c.typed.isEmpty())
            field.textCursor().insertText(c.typed);
        EXPECT_TRUE(text.read(*field.document()) == c.result) << qPrintable(c.result.left(40));
        field.undo();
        EXPECT_TRUE(text.read(*field.document()) == c.original);
    }
}

} // namespace

} // namespace quorvel
