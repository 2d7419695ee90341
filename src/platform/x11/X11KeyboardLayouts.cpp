#include "platform/x11/X11KeyboardLayouts.h"

#include "platform/x11/X11Windows.h"
#include "platform/x11/XkbEvents.h"
#include "platform/x11/XkbLayoutMaps.h"

#include <libintl.h>

#include <xkbcommon/xkbcommon-x11.h>

namespace quorvel {

namespace {

template <auto release>
struct Unref {
    template <typename T>
    void operator()(T* object) const {
        release(object);
    }
};
using Context = std::unique_ptr<xkb_context, Unref<xkb_context_unref>>;
using Keymap = std::unique_ptr<xkb_keymap, Unref<xkb_keymap_unref>>;

/// The layouts' names are translated by the package that they come from.
constexpr const char* nameDomain = "xkeyboard-config";

QString localizedName(const QString& name) {
    return QString::fromUtf8(dgettext(nameDomain, name.toUtf8().constData()));
}

} // namespace

X11KeyboardLayouts::X11KeyboardLayouts(X11Connection& connection)
    : m_connection(connection) {
    if (!m_connection.isAlive())
        return;
    bind_textdomain_codeset(nameDomain, "UTF-8");
    m_rules = m_connection.atom(u"_XKB_RULES_NAMES"_qs);
    watchKeyboard();
    connect(&m_connection, &X11Connection::eventArrived, this,
            [this](const xcb_generic_event_t* event) { handle(*event); });
}

void X11KeyboardLayouts::watchKeyboard() {
    xcb_connection_t* xcb = m_connection.xcb();
    if (xkb_x11_setup_xkb_extension(
            xcb, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
            XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &m_xkbEvent, nullptr) == 0)
        return;
    constexpr quint16 events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY |
                               XCB_XKB_EVENT_TYPE_MAP_NOTIFY | XCB_XKB_EVENT_TYPE_NAMES_NOTIFY;
    xcb_xkb_select_events(xcb, XCB_XKB_ID_USE_CORE_KBD, events, 0, events, 0xff, 0xff, nullptr);
    // The identifiers change later than the keys. Whoever shares the connection keeps its events.
    const auto attributes = m_connection.reply(xcb_get_window_attributes_reply,
                                               xcb_get_window_attributes(xcb, m_connection.root()));
    const quint32 mask =
        (attributes ? attributes->your_event_mask : 0) | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(xcb, m_connection.root(), XCB_CW_EVENT_MASK, &mask);
    m_connection.flush();
}

void X11KeyboardLayouts::handle(const xcb_generic_event_t& event) {
    const quint8 kind = event.response_type & 0x7f;
    const bool isRenamed =
        kind == XCB_PROPERTY_NOTIFY &&
        reinterpret_cast<const xcb_property_notify_event_t&>(event).atom == m_rules;
    const bool isRemapped = m_xkbEvent != 0 && kind == m_xkbEvent;
    if ((isRenamed || isRemapped) && std::exchange(m_didLoadKeyboardLayoutMaps, false))
        emit configurationChanged();
}

const QList<KeyboardLayoutMap>& X11KeyboardLayouts::maps() {
    if (!m_didLoadKeyboardLayoutMaps)
        load();
    return m_keyboardLayoutMapsCache;
}

void X11KeyboardLayouts::load() {
    m_didLoadKeyboardLayoutMaps = true;
    m_keyboardLayoutMapsCache.clear();
    m_groupIDs.clear();
    if (m_xkbEvent == 0 || !m_connection.isAlive())
        return;
    const QStringList ids = readIDs();
    xcb_connection_t* xcb = m_connection.xcb();
    const Context context(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES));
    const int device = xkb_x11_get_core_keyboard_device_id(xcb);
    const Keymap keymap(device < 0 || !context
                            ? nullptr
                            : xkb_x11_keymap_new_from_device(context.get(), xcb, device,
                                                             XKB_KEYMAP_COMPILE_NO_FLAGS));
    m_connection.keepArrivedEvents();
    if (!keymap)
        return;
    m_keyboardLayoutMapsCache = keyboardLayoutMaps(keymap.get(), ids);
    for (KeyboardLayoutMap& map : m_keyboardLayoutMapsCache)
        map.name = localizedName(map.name);
    for (xkb_layout_index_t group = 0; group < xkb_keymap_num_layouts(keymap.get()); ++group)
        m_groupIDs.append(layoutID(keymap.get(), ids, group));
}

/// The property holds rules, model, layouts, variants and options, each ended by a zero byte.
QStringList X11KeyboardLayouts::readIDs() {
    const QByteArray names = X11Windows(m_connection).bytes(m_connection.root(), m_rules);
    const QList<QByteArray> parts = names.split('\0');
    return parts.size() < 4
               ? QStringList()
               : layoutIDs(QString::fromLatin1(parts.at(2)), QString::fromLatin1(parts.at(3)));
}

QString X11KeyboardLayouts::activeID() {
    maps();
    if (m_groupIDs.isEmpty())
        return {};
    const auto state = m_connection.reply(
        xcb_xkb_get_state_reply, xcb_xkb_get_state(m_connection.xcb(), XCB_XKB_ID_USE_CORE_KBD));
    return state ? m_groupIDs.value(state->group) : QString();
}

void X11KeyboardLayouts::activate(const QString& id) {
    maps();
    const qsizetype group = m_groupIDs.indexOf(id);
    if (group < 0)
        return;
    xcb_xkb_latch_lock_state(m_connection.xcb(), XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, quint8(group), 0,
                             0, 0);
    m_connection.flush();
}

} // namespace quorvel
