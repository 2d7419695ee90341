#include "ui/popover/PopoverMenu.h"

#include <QCursor>
#include <QGuiApplication>

namespace quorvel {

PopoverMenu::PopoverMenu(const Icons& icons, const StringTable& strings)
    : m_context{icons, m_thumbnails, strings}
    , m_stack(m_context)
    , m_grab(m_stack.root()) {
    PopoverPanel& root = m_stack.root();
    connect(&root, &PopoverPanel::keyPressed, this, &PopoverMenu::keyPressed);
    connect(&root, &PopoverPanel::keyReleased, this,
            [this](const QKeyEvent* release) { keyReleased(*release); });
    connect(&root, &PopoverPanel::wentAway, this, &PopoverMenu::wentAway);
    connect(&root, &PopoverPanel::searchChanged, this, [this](const QString& query) {
        m_stack.expectResults();
        emit searchChanged(query);
    });
    connect(&m_stack, &PopoverStack::chosen, this, &PopoverMenu::choose);
    connect(&m_stack, &PopoverStack::submenuOpening, this, &PopoverMenu::submenuOpening);
    connect(&m_stack, &PopoverStack::pressedOutside, this, &PopoverMenu::close);
    connect(&m_stack, &PopoverStack::painted, this, &PopoverMenu::painted);
    connect(&m_thumbnails, &Thumbnails::decoded, &m_stack, &PopoverStack::refreshPictures);
    connect(&m_grab, &PopupGrab::refused, this, &PopoverMenu::close);
}

void PopoverMenu::setClosingKey(quint32 nativeKeyCode, Modifiers modifiers) {
    m_keyboard.setClosingKey(nativeKeyCode, modifiers);
}

void PopoverMenu::open(const QList<MenuItem>& tree, MenuForm /*form*/) {
    close();
    finish();
    m_phase = Phase::open;
    m_stack.open(tree, QCursor::pos());
    m_grab.secure();
}

void PopoverMenu::update(const QList<MenuItem>& tree) {
    if (isOpen())
        m_stack.update(tree);
}

void PopoverMenu::fillSubmenu(const QString& identifier, const QList<MenuItem>& items) {
    if (isOpen())
        m_stack.fillSubmenu(identifier, items);
}

void PopoverMenu::warmUp(const QList<MenuItem>& tree, MenuForm /*form*/) {
    if (m_phase == Phase::closed)
        m_stack.warmUp(tree);
}

void PopoverMenu::close() {
    if (isOpen())
        m_stack.close();
    finish();
}

Modifiers PopoverMenu::currentModifiers() const {
    return modifiersFrom(QGuiApplication::queryKeyboardModifiers());
}

void PopoverMenu::keyPressed(QKeyEvent* press) {
    if (!isOpen())
        return;
    press->accept();
    if (isModifierKey(press->key())) {
        if (!press->isAutoRepeat()) // The state that comes with the event is the one before it.
            emit modifiersChanged(currentModifiers() | modifierOf(press->key()));
        return;
    }
    const auto find = [this](const auto& matches) { return m_stack.find(matches); };
    const MenuKeyboard::Press meant = m_keyboard.pressed(*press, find);
    if (meant.meaning == MenuKeyboard::Meaning::closes)
        return close();
    if (meant.meaning == MenuKeyboard::Meaning::chooses)
        return choose(meant.item);
    if (meant.meaning == MenuKeyboard::Meaning::alreadyMeant)
        return;
    const auto submenu =
        m_stack.isSubmenuOpen() ? SearchField::Submenu::open : SearchField::Submenu::closed;
    SearchField* field = m_stack.root().searchField();
    const bool isEscape = press->key() == Qt::Key_Escape;
    const bool isTaken =
        (isEscape && m_stack.leaveSubmenu()) || (field && field->take(*press, submenu));
    if (isTaken)
        return;
    if (isEscape)
        close();
    else
        m_stack.driveBy(*press);
}

void PopoverMenu::keyReleased(const QKeyEvent& release) {
    m_keyboard.released(release);
    if (isOpen() && isModifierKey(release.key()) && !release.isAutoRepeat())
        emit modifiersChanged(currentModifiers());
}

/// The modifiers are those of the key press or click; by now they may be up.
void PopoverMenu::choose(const MenuItem& item) {
    if (!isOpen())
        return;
    m_choice = MenuChoice{item.action, item.representedObject,
                          modifiersFrom(QGuiApplication::keyboardModifiers())};
    m_stack.close();
}

/// The popover still has the grabs here, and its choice follows: told when both are settled.
void PopoverMenu::wentAway() {
    if (!isOpen())
        return;
    m_phase = Phase::ending;
    m_grab.stop();
    QMetaObject::invokeMethod(this, &PopoverMenu::finish, Qt::QueuedConnection);
}

void PopoverMenu::finish() {
    if (m_phase != Phase::ending)
        return;
    m_phase = Phase::closed;
    m_stack.close();
    const auto choice = std::exchange(m_choice, std::nullopt);
    emit closed();
    if (choice)
        emit chosen(*choice);
}

} // namespace quorvel
