#include "ui/popover/PopoverMenu.h"

#include "ui/MenuTree.h"
#include "ui/popover/PopoverAccessible.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>

namespace quorvel {

namespace {

constexpr Thumbnails::Look rowPictures{.box = PopoverMetrics::picture, .rounding = 4};
constexpr Thumbnails::Look previews{.box = QSize(340, 280), .rounding = 4};

} // namespace

PopoverMenu::PopoverMenu(const Icons& icons, const StringTable& strings)
    : m_thumbnails(rowPictures)
    , m_previews(previews)
    , m_context{icons, strings, m_thumbnails, m_previews}
    , m_stack(m_context)
    , m_keys(m_stack)
    , m_pointer(m_stack)
    , m_tip(m_stack, m_context) {
    makeListsAccessible();
    connectStack();
    connect(&m_thumbnails, &Thumbnails::decoded, &m_stack, &PopoverStack::repaint);
    connect(&m_previews, &Thumbnails::decoded, &m_tip, &PopoverTip::refresh);
    connect(&m_pointer, &PopoverPointer::pressedOutside, this, &PopoverMenu::close);
}

void PopoverMenu::connectStack() {
    connect(&m_stack, &PopoverStack::chosen, this, &PopoverMenu::choose);
    connect(&m_stack, &PopoverStack::hintDismissed, this, [this](const MenuItem& hint) {
        emit chosen({hint.action, hint.representedObject, currentModifiers()});
    });
    connect(&m_stack, &PopoverStack::hidden, this, &PopoverMenu::stackHidden);
    connect(&m_stack, &PopoverStack::submenuOpening, this, &PopoverMenu::submenuOpening);
    connect(&m_stack, &PopoverStack::searchChanged, this, &PopoverMenu::searchChanged);
    connect(&m_stack, &PopoverStack::painted, this, &PopoverMenu::painted);
    connect(&m_stack, &PopoverStack::changed, &m_tip, &PopoverTip::restart);
    connect(&m_stack, &PopoverStack::keyPressed, this, &PopoverMenu::keyPressed);
    connect(&m_stack, &PopoverStack::keyReleased, this, &PopoverMenu::keyReleased);
    connect(&m_stack, &PopoverStack::pointed, &m_pointer, &PopoverPointer::take);
}

void PopoverMenu::setClosingKey(quint32 nativeKeyCode, Modifiers modifiers) {
    m_keyboard.setClosingKey(nativeKeyCode, modifiers);
}

void PopoverMenu::open(const QList<MenuItem>& tree, MenuForm /*form*/) {
    close();
    finish();
    m_phase = Phase::open;
    const QPoint pointer = QCursor::pos();
    m_pointer.begin(pointer);
    m_stack.open(tree, pointer);
    if (isOpen())
        secureGrab();
}

/// Another kind of display may have led to another panel.
void PopoverMenu::secureGrab() {
    m_grab.emplace(m_stack.panel(0));
    connect(&*m_grab, &PopupGrab::refused, this, &PopoverMenu::close);
    m_grab->secure();
}

void PopoverMenu::update(const QList<MenuItem>& tree) {
    if (isOpen())
        m_stack.setItems(tree);
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
    if (!isOpen())
        return;
    m_stack.hide();
    finish();
}

Modifiers PopoverMenu::currentModifiers() const {
    return modifiersFrom(QGuiApplication::queryKeyboardModifiers());
}

void PopoverMenu::keyPressed(QKeyEvent& press) {
    if (!isOpen())
        return;
    if (isModifierKey(press.key()))
        return modifierPressed(press);
    const auto find = [this](const std::function<bool(const MenuItem&)>& matches) {
        return findItem(m_stack.list(0).rows().items(), matches);
    };
    const MenuKeyboard::Press meant = m_keyboard.pressed(press, find);
    switch (meant.meaning) {
    case MenuKeyboard::Meaning::closes:
        return close();
    case MenuKeyboard::Meaning::chooses:
        return choose(meant.item);
    case MenuKeyboard::Meaning::alreadyMeant:
        return;
    case MenuKeyboard::Meaning::nothing:
        break;
    }
    if (!m_keys.press(press))
        close();
}

/// The state that comes with the event is the one before it.
void PopoverMenu::modifierPressed(const QKeyEvent& press) {
    if (!press.isAutoRepeat())
        emit modifiersChanged(currentModifiers() | modifierOf(press.key()));
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
    m_stack.hide();
}

/// The event that has closed the popover is still under way: told when that and the grabs are
/// settled.
void PopoverMenu::stackHidden() {
    if (!isOpen())
        return;
    m_phase = Phase::ending;
    if (m_grab)
        m_grab->stop();
    m_pointer.end();
    m_tip.hide();
    QMetaObject::invokeMethod(this, &PopoverMenu::finish, Qt::QueuedConnection);
}

void PopoverMenu::finish() {
    if (m_phase != Phase::ending)
        return;
    m_phase = Phase::closed;
    const auto choice = std::exchange(m_choice, std::nullopt);
    QMetaObject::invokeMethod(this, &PopoverMenu::releaseWhenClosed, Qt::QueuedConnection);
    emit closed();
    if (choice)
        emit chosen(*choice);
}

void PopoverMenu::releaseWhenClosed() {
    if (m_phase == Phase::closed)
        m_stack.release();
}

} // namespace quorvel
