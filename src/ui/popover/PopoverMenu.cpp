#include "ui/popover/PopoverMenu.h"

#include "ui/MenuTree.h"
#include "ui/popover/PopoverAccessible.h"

#include <QKeyEvent>

namespace quorvel {

namespace {

constexpr Thumbnails::Look rowPictures{.box = PopoverMetrics::picture, .rounding = 4};
constexpr Thumbnails::Look previews{.box = QSize(340, 280), .rounding = 4};

} // namespace

PopoverMenu::PopoverMenu(const Icons& icons, const StringTable& strings, Pasteboard& pasteboard)
    : m_thumbnails(rowPictures)
    , m_previews(previews)
    , m_context{icons, strings, pasteboard, m_thumbnails, m_previews}
    , m_stack(m_context, screen())
    , m_keys(m_stack)
    , m_pointer(m_stack)
    , m_tip(m_stack, m_context) {
    makeListsAccessible();
    connectStack();
    connect(&m_thumbnails, &Thumbnails::decoded, &m_stack, &PopoverStack::repaint);
    connect(&m_previews, &Thumbnails::decoded, &m_tip, &PopoverTip::refresh);
    connect(&m_pointer, &PopoverPointer::pressedOutside, this, [this] { end("outside"); });
}

void PopoverMenu::connectStack() {
    connect(&m_stack, &PopoverStack::chosen, this, &PopoverMenu::choose);
    connect(&m_stack, &PopoverStack::hintDismissed, this,
            [this](const MenuItem& hint) { emit chosen(choiceOf(hint)); });
    connect(&m_stack, &PopoverStack::hidden, this, &PopoverMenu::stackHidden);
    connect(&m_stack, &PopoverStack::submenuOpening, this, &PopoverMenu::submenuOpening);
    connect(&m_stack, &PopoverStack::searchChanged, this, &PopoverMenu::searchChanged);
    connect(&m_stack, &PopoverStack::painted, this, &PopoverMenu::painted);
    connect(&m_stack, &PopoverStack::changed, &m_tip, &PopoverTip::restart);
    connect(&m_stack, &PopoverStack::keyPressed, this, &PopoverMenu::keyPressed);
    connect(&m_stack, &PopoverStack::keyReleased, this, &PopoverMenu::released);
    connect(&m_stack, &PopoverStack::pointed, &m_pointer, &PopoverPointer::take);
}

void PopoverMenu::show(const QList<MenuItem>& tree, QPoint place) {
    m_pointer.begin(place);
    m_stack.open(tree, place);
    if (isOpen())
        secureGrab();
}

/// Another kind of display may have led to another panel.
void PopoverMenu::secureGrab() {
    m_grab.emplace(m_stack.panel(0));
    connect(&*m_grab, &PopupGrab::refused, this, [this] { end("no grab"); });
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

void PopoverMenu::prepare(const QList<MenuItem>& tree) {
    m_stack.warmUp(tree);
}

void PopoverMenu::hide() {
    m_stack.hide();
}

void PopoverMenu::fitToScreen() {
    m_stack.fitToScreen();
}

void PopoverMenu::release() {
    m_stack.release();
}

bool PopoverMenu::awaitsAnswer() const {
    return m_stack.awaitsAnswer();
}

std::optional<MenuItem> PopoverMenu::find(const MenuKeyboard::Matches& matches) {
    return findItem(m_stack.list(0).rows().items(), matches);
}

void PopoverMenu::keyPressed(QKeyEvent& press) {
    if (isOpen() && pressed(press) == KeyUse::free && !m_keys.press(press))
        end("key");
}

void PopoverMenu::stackHidden() {
    if (m_grab)
        m_grab->stop();
    m_pointer.end();
    m_tip.hide();
    hidden();
}

} // namespace quorvel
