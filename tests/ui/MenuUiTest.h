#pragma once

#include "foundation/StringTable.h"
#include "menu/MenuRenderer.h"
#include "support/FakePasteboard.h"
#include "ui/Icons.h"
#include "ui/UiDesktop.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

#include <gtest/gtest.h>

namespace quorvel {

/// With a key of one character, it is chosen by that and the main modifier.
inline MenuItem clip(const QString& title, const QString& key = {}) {
    return {.title = title,
            .action = MenuAction::pasteRecentSnippet,
            .representedObject = title,
            .keyEquivalent = {key, key.isEmpty() ? Modifiers() : Modifier::command}};
}

inline QList<MenuItem> clips(int count) {
    QList<MenuItem> items;
    for (int i = 0; i < count; ++i)
        items.append(clip(QStringLiteral("clip %1").arg(i)));
    return items;
}

inline MenuItem submenu(const QString& identifier, const QList<MenuItem>& items = {}) {
    return {.title = identifier, .identifier = identifier, .submenu = items};
}

/// A tree with a search field; the highlight begins on the first of the clips.
inline QList<MenuItem> searchable(const QStringList& titles, const QString& query = {}) {
    QList<MenuItem> items{{.kind = MenuItemKind::searchField,
                           .title = QStringLiteral("Search"),
                           .representedObject = query},
                          MenuItem::separator(),
                          MenuItem::header(QStringLiteral("Clips"))};
    for (const QString& title : titles) {
        items.append(clip(title));
        items.last().tag = pasteItemTag;
    }
    return items;
}

/// What the toolkit says about the focus that the last popup has given up.
inline void tellOfLostFocus() {
    QEvent event(QEvent::ApplicationDeactivate);
    QCoreApplication::sendEvent(qApp, &event);
    QCoreApplication::processEvents();
    EXPECT_TRUE(QApplication::activePopupWidget());
}

/// A form of the menu on a real display, driven from outside; notes everything that it tells.
template <typename Menu, MenuForm form>
class MenuUiTest : public testing::Test {
protected:
    MenuUiTest() {
        const auto note = [this](const QString& event) { m_events.append(event); };
        QObject::connect(&m_menu, &MenuRenderer::painted, &m_menu, [this] { ++m_paintings; });
        QObject::connect(&m_menu, &MenuRenderer::closed, &m_menu,
                         [note] { note(QStringLiteral("closed")); });
        QObject::connect(&m_menu, &MenuRenderer::chosen, &m_menu,
                         [this, note](const MenuChoice& choice) {
                             note(QStringLiteral("chosen ") + choice.representedObject);
                             m_choice = choice;
                         });
        QObject::connect(&m_menu, &MenuRenderer::submenuOpening, &m_menu,
                         [note](const QString& id) { note(QStringLiteral("opening ") + id); });
        QObject::connect(&m_menu, &MenuRenderer::searchChanged, &m_menu,
                         [this](const QString& query) { m_queries.append(query); });
        QObject::connect(&m_menu, &MenuRenderer::modifiersChanged, &m_menu,
                         [this](Modifiers held) { m_modifiers.append(held); });
        putPointer(QPoint(200, 100));
    }

    Menu& menu() { return m_menu; }
    FakePasteboard& pasteboard() { return m_pasteboard; }
    const QStringList& events() const { return m_events; }
    const QStringList& queries() const { return m_queries; }
    const MenuChoice& choice() const { return m_choice; }
    const QList<Modifiers>& modifiersTold() const { return m_modifiers; }

    static void putPointer(QPoint position) {
        xdotool({QStringLiteral("mousemove"), QString::number(position.x()),
                 QString::number(position.y())});
    }

    void open(const QList<MenuItem>& tree) {
        const int before = m_paintings;
        m_menu.open(tree, form);
        ASSERT_TRUE(waitUntil([&] { return m_paintings == before + 1; }));
    }

    bool happens(const QStringList& expected) { return comesToBe(m_events, expected); }
    /// Answers a search no sooner than a key needs it, as when keys come together.
    void answerSearchesWhenNeeded(const QStringList& titles) {
        QObject::connect(&m_menu, &MenuRenderer::answerNeeded, &m_menu, [this, titles] {
            const QString query = m_queries.constLast();
            m_menu.update(searchable(titles.filter(query), query));
        });
    }

    /// Presses that the program gets in one turn of its main loop.
    static void sendTogether(std::initializer_list<std::pair<Qt::Key, const char*>> presses) {
        for (const auto& [key, text] : presses) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString::fromLatin1(text));
            QApplication::sendEvent(QApplication::activePopupWidget(), &press);
        }
    }

    bool asked(const QStringList& expected) { return comesToBe(m_queries, expected); }

    /// What the open menu's search field does at the keys and the button for the clipboard.
    void editsSearchByThePasteboard(QWidget& field) {
        QGuiApplication::clipboard()->setText(QStringLiteral("selected"), QClipboard::Selection);
        pasteboard().copyFromOutside(QStringLiteral("\n  caf\u00E9 au \r\nlait"));
        pressKeys("ctrl+v");
        ASSERT_TRUE(asked({QStringLiteral("caf\u00E9 au")}));
        const QPoint middle = field.mapToGlobal(field.rect().center());
        putPointer(middle);
        xdotool({QStringLiteral("click"), QStringLiteral("2")});
        for (const char* key : {"Home", "ctrl+shift+Right", "ctrl+x"})
            pressKeys(key);
        ASSERT_TRUE(waitUntil([&] { return queries().constLast() == u"au"; }));
        EXPECT_EQ(pasteboard().string(), QStringLiteral("caf\u00E9 "));
        pressKeys("ctrl+u");
        ASSERT_TRUE(waitUntil([&] { return queries().constLast().isEmpty(); }));
        EXPECT_EQ(pasteboard().writeCount(), 1);
        EXPECT_FALSE(QGuiApplication::clipboard()->ownsClipboard());
    }

    /// What the program does with a search: the tree with what is found.
    void answerSearches(const QStringList& titles) {
        QObject::connect(&m_menu, &MenuRenderer::searchChanged, &m_menu,
                         [this, titles](const QString& query) {
                             m_menu.update(searchable(titles.filter(query), query));
                         });
    }

private:
    static bool comesToBe(const QStringList& list, const QStringList& expected) {
        return waitUntil([&] { return list.size() >= expected.size(); }) && list == expected;
    }

    Icons m_icons;
    StringTable m_strings = StringTable::forLanguage(QStringLiteral("en"));
    FakePasteboard m_pasteboard;
    Menu m_menu{m_icons, m_strings, m_pasteboard};
    QStringList m_events;
    QStringList m_queries;
    QList<Modifiers> m_modifiers;
    MenuChoice m_choice;
    int m_paintings = 0;
};

} // namespace quorvel
