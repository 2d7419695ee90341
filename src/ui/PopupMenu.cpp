#include "ui/PopupMenu.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>

namespace quorvel {

PopupMenu::PopupMenu() {
    connect(&m_screen, &PopupScreen::gone, this, [this] { end("screen gone"); });
    connect(&m_screen, &PopupScreen::limitsChanged, this, [this] {
        if (isOpen())
            fitToScreen();
    });
}

void PopupMenu::setClosingKey(quint32 nativeKeyCode, Modifiers modifiers) {
    m_keyboard.setClosingKey(nativeKeyCode, modifiers);
}

void PopupMenu::open(const QList<MenuItem>& tree, MenuForm /*form*/) {
    close();
    m_phase = Phase::open;
    m_reason = nullptr;
    const QPoint pointer = QCursor::pos();
    m_screen.follow(pointer);
    show(tree, pointer);
}

void PopupMenu::warmUp(const QList<MenuItem>& tree, MenuForm /*form*/) {
    if (m_phase == Phase::closed)
        prepare(tree);
}

void PopupMenu::close() {
    end("asked");
}

/// Also ends a showing whose windows have gone already.
void PopupMenu::end(const char* reason) {
    if (isOpen()) {
        m_reason = reason;
        hide();
    }
    finish();
}

Modifiers PopupMenu::currentModifiers() const {
    return modifiersFrom(QGuiApplication::queryKeyboardModifiers());
}

PopupMenu::KeyUse PopupMenu::pressed(const QKeyEvent& press) {
    if (isModifierKey(press.key())) {
        modifierPressed(press);
        return KeyUse::taken;
    }
    settleSearch(press);
    if (!isOpen())
        return KeyUse::taken;
    const MenuKeyboard::Press meant =
        m_keyboard.pressed(press, [this](const auto& matches) { return find(matches); });
    if (meant.meaning == MenuKeyboard::Meaning::closes)
        end("hot key");
    else if (meant.meaning == MenuKeyboard::Meaning::chooses)
        chooseByKeys(meant.item);
    return meant.meaning == MenuKeyboard::Meaning::nothing ? KeyUse::free : KeyUse::taken;
}

/// Letters may come faster than they are answered; any other key is about the rows that it finds.
void PopupMenu::settleSearch(const QKeyEvent& press) {
    if (isOpen() && !isTyping(press) && awaitsAnswer())
        emit answerNeeded();
}

/// The state that comes with the event is the one before it.
void PopupMenu::modifierPressed(const QKeyEvent& press) {
    if (isOpen() && !press.isAutoRepeat())
        emit modifiersChanged(currentModifiers() | modifierOf(press.key()));
}

void PopupMenu::released(const QKeyEvent& release) {
    m_keyboard.released(release);
    if (isOpen() && isModifierKey(release.key()) && !release.isAutoRepeat())
        emit modifiersChanged(currentModifiers());
}

void PopupMenu::choose(const MenuItem& item) {
    end(choiceOf(item));
}

/// The modifiers that belong to the keys say no more.
void PopupMenu::chooseByKeys(const MenuItem& item) {
    MenuChoice choice = choiceOf(item);
    choice.modifiers &= ~item.keyEquivalent.modifiers;
    end(choice);
}

void PopupMenu::end(const MenuChoice& choice) {
    if (m_phase == Phase::closed)
        return;
    m_choice = choice;
    m_reason = "chosen";
    hide();
}

/// The modifiers are those of the key press or click; by now they may be up.
MenuChoice PopupMenu::choiceOf(const MenuItem& item) {
    return {item.action, item.representedObject,
            modifiersFrom(QGuiApplication::keyboardModifiers())};
}

void PopupMenu::hidden() {
    if (!isOpen())
        return;
    m_phase = Phase::ending;
    emit ending(QString::fromLatin1(m_reason ? m_reason : "system"));
    QMetaObject::invokeMethod(this, &PopupMenu::finish, Qt::QueuedConnection);
}

void PopupMenu::finish() {
    if (m_phase != Phase::ending)
        return;
    m_phase = Phase::closed;
    const auto choice = std::exchange(m_choice, std::nullopt);
    QMetaObject::invokeMethod(this, &PopupMenu::releaseWhenClosed, Qt::QueuedConnection);
    emit closed();
    if (choice)
        emit chosen(*choice);
}

void PopupMenu::releaseWhenClosed() {
    if (m_phase == Phase::closed)
        release();
}

} // namespace quorvel
