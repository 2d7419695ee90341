#include "ui/NativeMenu.h"

#include "foundation/Log.h"
#include "ui/Icons.h"
#include "ui/ItemIcons.h"
#include "ui/MenuKeys.h"
#include "ui/PopupGrab.h"

#include <QCursor>
#include <QGuiApplication>
#include <QToolTip>

#include <array>

namespace quorvel {

namespace {

constexpr int grabRetryMilliseconds = 100;
constexpr int grabTries = 10;

constexpr std::array modifierKeys{Qt::Key_Alt,     Qt::Key_AltGr,   Qt::Key_Control,
                                  Qt::Key_Shift,   Qt::Key_Meta,    Qt::Key_Super_L,
                                  Qt::Key_Super_R, Qt::Key_Hyper_L, Qt::Key_Hyper_R};

bool isModifierKey(int key) {
    return std::find(modifierKeys.begin(), modifierKeys.end(), key) != modifierKeys.end();
}

/// Meta is left out: it is also what Alt gives together with Shift.
Modifiers modifierOf(int key) {
    switch (key) {
    case Qt::Key_Alt:
        return Modifier::option;
    case Qt::Key_Control:
        return Modifier::control;
    case Qt::Key_Shift:
        return Modifier::shift;
    default:
        return {};
    }
}

} // namespace

NativeMenu::NativeMenu(const Icons& icons, const StringTable& strings)
    : m_context(context(icons, strings))
    , m_menu(m_context, &m_style) {
    connect(&m_menu, &QMenu::aboutToHide, this, &NativeMenu::menuHidden);
    connect(&m_menu, &MenuWidget::painted, this, &NativeMenu::painted);
    connect(&m_menu, &MenuWidget::searchChanged, this, &NativeMenu::searchChanged);
    connect(&m_thumbnails, &Thumbnails::decoded, &m_menu, &MenuWidget::refreshPictures);
    m_grabRetry.setSingleShot(true);
    connect(&m_grabRetry, &QTimer::timeout, this, &NativeMenu::secureGrabs);
}

void NativeMenu::setKeyPositions(const HotKeyCenter& keys) {
    m_keys = &keys;
}

void NativeMenu::setClosingKey(quint32 nativeKeyCode, Modifiers modifiers) {
    m_closingKey = nativeKeyCode;
    m_closingModifiers = modifiers;
}

void NativeMenu::open(const QList<MenuItem>& tree) {
    close();
    finish();
    m_menu.setItems(tree);
    m_phase = Phase::open;
    m_menu.popUpAt(QCursor::pos());
    m_grabTries = 0;
    secureGrabs();
}

void NativeMenu::update(const QList<MenuItem>& tree) {
    if (isOpen())
        m_menu.setItems(tree);
}

void NativeMenu::fillSubmenu(const QString& identifier, const QList<MenuItem>& items) {
    if (isOpen())
        m_menu.fillSubmenu(identifier, items);
}

void NativeMenu::warmUp(const QList<MenuItem>& tree) {
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

/// The grab takes our own hot keys, too; a held one repeats and must not count as pressed again.
bool NativeMenu::takesKey(const QKeyEvent& press) {
    if (isModifierKey(press.key())) {
        modifierPressed(press);
        return true;
    }
    if (isClosingKey(press)) {
        if (!m_repeat.isRepeat(press))
            close();
        return true;
    }
    const auto item = m_menu.find(
        [&](const MenuItem& candidate) { return means(press, candidate.keyEquivalent, m_keys); });
    if (item && !m_repeat.isRepeat(press))
        choose(*item);
    return item.has_value();
}

/// The state that comes with the event is the one before it.
void NativeMenu::modifierPressed(const QKeyEvent& press) {
    if (isOpen() && !press.isAutoRepeat())
        emit modifiersChanged(currentModifiers() | modifierOf(press.key()));
}

void NativeMenu::keyReleased(const QKeyEvent& release) {
    m_repeat.released(release);
    if (isOpen() && isModifierKey(release.key()) && !release.isAutoRepeat())
        emit modifiersChanged(currentModifiers());
}

bool NativeMenu::isClosingKey(const QKeyEvent& press) const {
    return m_closingKey != 0 && press.nativeScanCode() == m_closingKey &&
           modifiersFrom(press.modifiers()) == m_closingModifiers;
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
    m_grabRetry.stop();
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

/// The grabs are asked for again even if the toolkit has them all: it does not notice when the
/// pointer was refused.
void NativeMenu::secureGrabs() {
    if (!isOpen())
        return;
    const bool hasThem = takeGrabs(m_menu);
    if (++m_grabTries < grabTries) {
        m_grabRetry.start(grabRetryMilliseconds);
    } else if (!hasThem) {
        logLine(QStringLiteral("[Quorvel Menu] Closed: another program holds the keyboard."));
        close();
    }
}

} // namespace quorvel
