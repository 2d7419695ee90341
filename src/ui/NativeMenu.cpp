#include "ui/NativeMenu.h"

#include "ui/Icons.h"
#include "ui/ItemIcons.h"
#include "ui/SearchField.h"

#include <QGuiApplication>
#include <QToolTip>

namespace quorvel {

NativeMenu::NativeMenu(const Icons& icons, const StringTable& strings, Pasteboard& pasteboard)
    : m_context(context(icons, strings, pasteboard))
    , m_menu(m_context, &m_style)
    , m_grab(m_menu) {
    connect(&m_menu, &QMenu::aboutToHide, this, [this] {
        m_grab.stop();
        QToolTip::hideText();
        hidden();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this] {
        end("screen gone"); // Its own or another: it cannot forget that one while it is shown.
        m_menu.forgetScreen();
    });
    connect(&m_menu, &MenuWidget::painted, this, &NativeMenu::painted);
    connect(&m_menu, &MenuWidget::searchChanged, this, &NativeMenu::searchChanged);
    connect(&m_thumbnails, &Thumbnails::decoded, &m_menu, &MenuWidget::refreshPictures);
    connect(&m_grab, &PopupGrab::refused, this, [this] { end("no grab"); });
}

void NativeMenu::show(const QList<MenuItem>& tree, QPoint place) {
    m_menu.setItems(tree);
    m_menu.popUpAt(place, screen());
    m_grab.secure();
}

void NativeMenu::update(const QList<MenuItem>& tree) {
    if (isOpen())
        m_menu.setItems(tree);
}

void NativeMenu::fillSubmenu(const QString& identifier, const QList<MenuItem>& items) {
    if (isOpen())
        m_menu.fillSubmenu(identifier, items);
}

void NativeMenu::prepare(const QList<MenuItem>& tree) {
    m_menu.setItems(tree);
    m_menu.winId();
    prepareTextCursor(m_menu.windowHandle());
    m_menu.grab();
    m_menu.release();
}

void NativeMenu::hide() {
    m_menu.close();
}

void NativeMenu::fitToScreen() {
    m_menu.layOutAgain();
}

void NativeMenu::release() {
    m_menu.release();
}

bool NativeMenu::awaitsAnswer() const {
    return m_menu.awaitsAnswer();
}

std::optional<MenuItem> NativeMenu::find(const MenuKeyboard::Matches& matches) {
    return m_menu.find(matches);
}

MenuContext NativeMenu::context(const Icons& icons, const StringTable& strings,
                                Pasteboard& pasteboard) {
    MenuContext context{.pasteboard = pasteboard};
    context.icon = [this, &icons](const MenuItem& item) {
        const QIcon plain = icon(item, icons);
        return item.isPinned ? pinnedIcon(plain, icons.symbol(QStringLiteral("pin"))) : plain;
    };
    context.keyText = [&strings](const KeyEquivalent& keys) {
        return keyEquivalentText(keys, strings);
    };
    context.takesKey = [this](const QKeyEvent& press) { return pressed(press) == KeyUse::taken; };
    context.typed = [this](QKeyEvent& press) { return m_menu.type(press); };
    context.keyReleased = [this](const QKeyEvent& release) { released(release); };
    context.chosen = [this](const MenuItem& item) { choose(item); };
    context.submenuOpening = [this](const QString& id) { emit submenuOpening(id); };
    return context;
}

QIcon NativeMenu::icon(const MenuItem& item, const Icons& icons) {
    const QColor colour = QColor::fromString(item.colorName);
    if (colour.isValid())
        return swatchIcon(colour);
    if (item.imagePNGData.isEmpty())
        return icons.symbol(item.symbol);
    const QIcon thumbnail = m_thumbnails.icon(item.imagePNGData);
    return thumbnail.isNull() ? icons.symbol(QStringLiteral("photo")) : thumbnail;
}

} // namespace quorvel
