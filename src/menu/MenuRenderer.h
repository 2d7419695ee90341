#pragma once

#include "menu/MenuItem.h"

#include <QObject>

namespace quorvel {

struct MenuChoice {
    MenuAction action = MenuAction::none;
    QString representedObject;
    Modifiers modifiers; ///< Held when the item was chosen.
};

/// How a menu looks: like the desktop's own menus, or as a window with room for details.
enum class MenuForm { native, popover };

/// Draws one menu tree at a time and tells what the user did with it. Holds no rule: what stands
/// in the tree is shown. Never takes the input focus from the program in front. When the tree has a
/// search field, what is typed goes there, wherever the highlight is.
class MenuRenderer : public QObject {
    Q_OBJECT

public:
    /// Shows the tree at the pointer, wholly on one screen.
    virtual void open(const QList<MenuItem>& tree, MenuForm form) = 0;

    /// Replaces what the open menu shows, in place: the highlight stays on its item, an open
    /// submenu with its item, the typed text in the search field. Nothing when it is closed.
    virtual void update(const QList<MenuItem>& tree) = 0;

    /// Gives a lazy submenu its items, by its identifier; several rows may lead to it.
    virtual void fillSubmenu(const QString& identifier, const QList<MenuItem>& items) = 0;

    /// Does what the first opening would have to wait for: fonts, icons, the window. Shows nothing.
    virtual void warmUp(const QList<MenuItem>& tree, MenuForm form) = 0;

    /// Closes the menu; `closed` is emitted as if the user had closed it.
    virtual void close() = 0;

    virtual bool isOpen() const = 0;

    /// The hot key that opens the menu, by the platform's number of its key: while the menu is
    /// open it does not work as a hot key and has to close it. 0 for none.
    virtual void setClosingKey(quint32 nativeKeyCode, Modifiers modifiers) = 0;

    /// Modifier keys held now.
    virtual Modifiers currentModifiers() const = 0;

signals:
    /// A lazy submenu is about to be shown; whoever fills it may do so at once or later.
    void submenuOpening(const QString& identifier);

    /// The user has changed the text of the search field.
    void searchChanged(const QString& query);

    /// A key is about to act on what a search finds: an update that is still to come is needed now.
    void answerNeeded();

    /// A modifier key went down or up while the menu is open.
    void modifiersChanged(quorvel::Modifiers held);

    /// The first frame since the menu was opened or updated is on the screen.
    void painted();

    /// The menu is being closed, with the reason for the log. Comes before `closed`.
    void ending(const QString& reason);

    /// The menu is gone. Emitted once for each opening, before `chosen`.
    void closed();

    void chosen(const quorvel::MenuChoice& choice);
};

} // namespace quorvel
