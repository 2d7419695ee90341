#include "ui/NativeMenu.h"

#include "ui/Icons.h"
#include "ui/ItemIcons.h"

#include <QCursor>
#include <QGuiApplication>
#include <QToolTip>

namespace quorvel {

NativeMenu::NativeMenu(const Icons& icons, const StringTable& strings)
    : m_context(context(icons, strings))
    , m_menu(m_context, &m_style)
    , m_grab(m_menu) {
    connect(&m_menu, &QMenu::aboutToHide, this, &NativeMenu::menuHidden);
    connect(&m_menu, &MenuWidget::painted, this, &NativeMenu::painted);
    connect(&m_menu, &MenuWidget::searchChanged, this, &NativeMenu::searchChanged);
    connect(&m_thumbnails, &Thumbnails::decoded, &m_menu, &MenuWidget::refreshPictures);
    connect(&m_grab, &PopupGrab::refused, this, &NativeMenu::close);
}

void NativeMenu::setKeyPositions(const HotKeyCenter& keys) {
    m_keyboard.setKeyPositions(keys);
}

void NativeMenu::setClosingKey(quint32 nativeKeyCode, Modifiers modifiers) {
    m_keyboard.setClosingKey(nativeKeyCode, modifiers);
}

void NativeMenu::open(const QList<MenuItem>& tree, MenuForm /*form*/) {
    close();
    finish();
    m_menu.setItems(tree);
    m_phase = Phase::open;
    m_menu.popUpAt(QCursor::pos());
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

void NativeMenu::warmUp(const QList<MenuItem>& tree, MenuForm /*form*/) {
    if (m_phase != Phase::closed)
        return;
    m_menu.setItems(tree);
    m_menu.winId();
    m_menu.grab();
    m_menu.release();
}

void NativeMenu::close() {
    if (!isOpen())
        return;
    m_menu.close();
    finish();
}

bool NativeMenu::isOpen() const {
    return m_phase == Phase::open;
}

Modifiers NativeMenu::currentModifiers() const {
    return modifiersFrom(QGuiApplication::queryKeyboardModifiers());
}

MenuContext NativeMenu::context(const Icons& icons, const StringTable& strings) {
    MenuContext context;
    context.icon = [this, &icons](const MenuItem& item) {
        const QIcon plain = icon(item, icons);
        return item.isPinned ? pinnedIcon(plain, icons.symbol(QStringLiteral("pin"))) : plain;
    };
    context.keyText = [&strings](const KeyEquivalent& keys) {
        return keyEquivalentText(keys, strings);
    };
    context.takesKey = [this](const QKeyEvent& press) { return takesKey(press); };
    context.typed = [this](QKeyEvent& press) { return m_menu.type(press); };
    context.keyReleased = [this](const QKeyEvent& release) { keyReleased(release); };
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

bool NativeMenu::takesKey(const QKeyEvent& press) {
    if (isModifierKey(press.key())) {
        modifierPressed(press);
        return true;
    }
    const auto find = [this](const auto& matches) { return m_menu.find(matches); };
    const MenuKeyboard::Press meant = m_keyboard.pressed(press, find);
    if (meant.meaning == MenuKeyboard::Meaning::closes)
        close();
    else if (meant.meaning == MenuKeyboard::Meaning::chooses)
        choose(meant.item);
    return meant.meaning != MenuKeyboard::Meaning::nothing;
}

/// The state that comes with the event is the one before it.
void NativeMenu::modifierPressed(const QKeyEvent& press) {
    if (isOpen() && !press.isAutoRepeat())
        emit modifiersChanged(currentModifiers() | modifierOf(press.key()));
}

void NativeMenu::keyReleased(const QKeyEvent& release) {
    m_keyboard.released(release);
    if (isOpen() && isModifierKey(release.key()) && !release.isAutoRepeat())
        emit modifiersChanged(currentModifiers());
}

/// The modifiers are those of the key press or click; by now they may be up.
void NativeMenu::choose(const MenuItem& item) {
    if (m_phase == Phase::closed)
        return;
    m_choice = MenuChoice{item.action, item.representedObject,
                          modifiersFrom(QGuiApplication::keyboardModifiers())};
    m_menu.close();
}

/// The menu still has the grabs here, and its choice follows: told when both are settled.
void NativeMenu::menuHidden() {
    if (!isOpen())
        return;
    m_phase = Phase::ending;
    m_grab.stop();
    QMetaObject::invokeMethod(this, &NativeMenu::finish, Qt::QueuedConnection);
}

void NativeMenu::finish() {
    if (m_phase != Phase::ending)
        return;
    m_phase = Phase::closed;
    const auto choice = std::exchange(m_choice, std::nullopt);
    QToolTip::hideText();
    QMetaObject::invokeMethod(this, &NativeMenu::releaseWhenClosed, Qt::QueuedConnection);
    emit closed();
    if (choice)
        emit chosen(*choice);
}

void NativeMenu::releaseWhenClosed() {
    if (m_phase == Phase::closed)
        m_menu.release();
}

} // namespace quorvel
