#include "platform/x11/X11KeyTables.h"

#include "platform/x11/XcbReply.h"

#include <QSet>

#include <algorithm>
#include <utility>

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

namespace quorvel {

namespace {

/// Plain and shifted; what the levels above give is harder to reach than another group.
constexpr xkb_level_index_t usualLevels = 2;
constexpr xkb_level_index_t mostLevels = 8;

template <auto release>
struct Unref {
    template <typename T>
    void operator()(T* object) const {
        release(object);
    }
};
using Context = std::unique_ptr<xkb_context, Unref<xkb_context_unref>>;
using Keymap = std::unique_ptr<xkb_keymap, Unref<xkb_keymap_unref>>;
using State = std::unique_ptr<xkb_state, Unref<xkb_state_unref>>;

X11KeyTables::ModifierKeys readModifierKeys(xcb_connection_t* connection) {
    X11KeyTables::ModifierKeys keys;
    const XcbOwned<xcb_get_modifier_mapping_reply_t> reply(
        xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr));
    if (!reply)
        return keys;
    const xcb_keycode_t* code = xcb_get_modifier_mapping_keycodes(reply.get());
    for (QList<xcb_keycode_t>& row : keys)
        for (int i = 0; i < reply->keycodes_per_modifier; ++i, ++code)
            if (*code != 0)
                row.append(*code);
    return keys;
}

bool isKeypad(xkb_keysym_t symbol) {
    return symbol >= XKB_KEY_KP_Space && symbol <= XKB_KEY_KP_Equal;
}

/// What the key gives without modifiers in one group; 0 for nothing that can be shown.
char16_t plainCharacter(xkb_keymap* keymap, xkb_keycode_t key, xkb_layout_index_t group) {
    const xkb_keysym_t* symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap, key, group, 0, &symbols);
    const char32_t character = count == 1 ? xkb_keysym_to_utf32(symbols[0]) : 0;
    const bool isOne = character <= 0xffff && QChar(char16_t(character)).isPrint();
    return isOne && !isKeypad(symbols[0]) ? QChar(char16_t(character)).toLower().unicode() : 0;
}

/// A few Latin layouts lack some letters; the others lack all.
bool hasLatinLetters(xkb_keymap* keymap, xkb_layout_index_t group) {
    constexpr int enough = 20;
    QSet<char16_t> letters;
    for (auto key = xkb_keymap_min_keycode(keymap); key <= xkb_keymap_max_keycode(keymap); ++key)
        if (const char16_t c = plainCharacter(keymap, key, group); c >= u'a' && c <= u'z')
            letters.insert(c);
    return letters.size() >= enough;
}

struct Groups {
    QList<xkb_layout_index_t> latin; ///< The active one first, if it is one of them.
    QList<xkb_layout_index_t> others;
};

Groups groupsForNames(xkb_keymap* keymap, xkb_layout_index_t active) {
    QList<xkb_layout_index_t> all{active};
    for (xkb_layout_index_t group = 0; group < xkb_keymap_num_layouts(keymap); ++group)
        if (group != active)
            all.append(group);
    Groups groups;
    for (const xkb_layout_index_t group : std::as_const(all))
        (hasLatinLetters(keymap, group) ? groups.latin : groups.others).append(group);
    return groups;
}

struct UsRow {
    xcb_keycode_t first;
    QStringView keys;
};

constexpr UsRow usRows[] = {
    {10, u"1234567890-="},
    {24, u"qwertyuiop[]"},
    {38, u"asdfghjkl;'`"},
    {51, u"\\zxcvbnm,./"},
    {65, u" "},
};

constexpr quint16 bit(int index) {
    return quint16(1u << index);
}

} // namespace

std::optional<X11KeyTables> X11KeyTables::read(xcb_connection_t* connection) {
    if (xcb_connection_has_error(connection) != 0 ||
        !xkb_x11_setup_xkb_extension(
            connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
            XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr))
        return std::nullopt;
    const int device = xkb_x11_get_core_keyboard_device_id(connection);
    const Context context(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES));
    if (device < 0 || !context)
        return std::nullopt;
    const Keymap keymap(xkb_x11_keymap_new_from_device(context.get(), connection, device,
                                                       XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap)
        return std::nullopt;
    const State state(xkb_x11_state_new_from_device(keymap.get(), connection, device));
    if (!state)
        return std::nullopt;
    const auto group = xkb_state_serialize_layout(state.get(), XKB_STATE_LAYOUT_EFFECTIVE);
    return X11KeyTables(keymap.get(), group, readModifierKeys(connection));
}

X11KeyTables::X11KeyTables(xkb_keymap* keymap, xkb_layout_index_t group,
                           const ModifierKeys& modifierKeys)
    : m_group(group)
    , m_modifierKeys(modifierKeys) {
    const xkb_layout_index_t groups = xkb_keymap_num_layouts(keymap);
    for (const auto& [first, end] :
         {std::pair(0u, usualLevels), std::pair(usualLevels, mostLevels)}) {
        addGroup(keymap, group, first, end);
        for (xkb_layout_index_t other = 0; other < groups; ++other)
            addGroup(keymap, other, first, end);
    }
    addPlainCharacters(keymap);
    const std::pair<Modifier, int> indices[] = {
        {Modifier::shift, XCB_MAP_INDEX_SHIFT},
        {Modifier::control, XCB_MAP_INDEX_CONTROL},
        {Modifier::option, modifierIndex(keymap, {XKB_KEY_Alt_L, XKB_KEY_Alt_R, XKB_KEY_Meta_L})},
        {Modifier::command, modifierIndex(keymap, {XKB_KEY_Super_L, XKB_KEY_Super_R})},
    };
    for (const auto& [modifier, index] : indices)
        if (index >= 0 && !m_modifierKeys[size_t(index)].isEmpty())
            m_modifierIndices.insert(quint32(modifier), index);
    const int numLock = modifierIndex(keymap, {XKB_KEY_Num_Lock});
    const int scrollLock = modifierIndex(keymap, {XKB_KEY_Scroll_Lock});
    m_numLockMask = numLock < 0 ? 0 : bit(numLock);
    m_lockMask = XCB_MOD_MASK_LOCK | m_numLockMask | (scrollLock < 0 ? 0 : bit(scrollLock));
}

void X11KeyTables::addGroup(xkb_keymap* keymap, xkb_layout_index_t group,
                            xkb_level_index_t firstLevel, xkb_level_index_t endLevel) {
    for (xkb_level_index_t level = firstLevel; level < endLevel; ++level)
        for (auto key = xkb_keymap_min_keycode(keymap); key <= xkb_keymap_max_keycode(keymap);
             ++key) {
            // A key with fewer groups is taken into its range, as it is when it is typed.
            const xkb_keysym_t* symbols = nullptr;
            const int count = xkb_keymap_key_get_syms_by_level(keymap, key, group, level, &symbols);
            for (int i = 0; i < count; ++i)
                addSymbol(symbols[i], xcb_keycode_t(key));
        }
}

void X11KeyTables::addSymbol(xkb_keysym_t symbol, xcb_keycode_t key) {
    if (isKeypad(symbol))
        return;
    if (!m_symbols.contains(symbol))
        m_symbols.insert(symbol, key);
    const char32_t character = xkb_keysym_to_utf32(symbol);
    if (character != 0 && !m_characters.contains(character))
        m_characters.insert(character, key);
}

void X11KeyTables::addPlainCharacters(xkb_keymap* keymap) {
    const auto [latin, others] = groupsForNames(keymap, m_group);
    for (auto key = xkb_keymap_min_keycode(keymap); key <= xkb_keymap_max_keycode(keymap); ++key) {
        QList<QChar>& characters = m_plainCharacters[key];
        const auto add = [&](const QList<xkb_layout_index_t>& groups) {
            for (const xkb_layout_index_t group : groups)
                if (const char16_t character = plainCharacter(keymap, key, group); character != 0)
                    characters.append(character);
        };
        add(latin);
        if (const auto usual = usCharacterOf(key))
            characters.append(*usual);
        add(others);
    }
}

bool X11KeyTables::gives(xkb_keymap* keymap, xcb_keycode_t key, xkb_keysym_t symbol) {
    for (xkb_layout_index_t group = 0; group < xkb_keymap_num_layouts_for_key(keymap, key); ++group)
        for (xkb_level_index_t level = 0; level < mostLevels; ++level) {
            const xkb_keysym_t* symbols = nullptr;
            const int count = xkb_keymap_key_get_syms_by_level(keymap, key, group, level, &symbols);
            if (std::find(symbols, symbols + count, symbol) != symbols + count)
                return true;
        }
    return false;
}

int X11KeyTables::modifierIndex(xkb_keymap* keymap,
                                std::initializer_list<xkb_keysym_t> symbols) const {
    for (const xkb_keysym_t symbol : symbols)
        for (size_t index = 0; index < m_modifierKeys.size(); ++index)
            for (const xcb_keycode_t key : m_modifierKeys[index])
                if (gives(keymap, key, symbol))
                    return int(index);
    return -1;
}

std::optional<xcb_keycode_t> X11KeyTables::keyFor(QChar character) const {
    for (const QChar form : {character.toLower(), character}) {
        const auto key = m_characters.constFind(form.unicode());
        if (key != m_characters.cend())
            return *key;
    }
    return std::nullopt;
}

QList<QChar> X11KeyTables::plainCharacters(xkb_keycode_t key) const {
    return m_plainCharacters.value(key);
}

std::optional<xcb_keycode_t> X11KeyTables::keyForSymbol(xkb_keysym_t symbol) const {
    const auto key = m_symbols.constFind(symbol);
    return key == m_symbols.cend() ? std::nullopt : std::optional(*key);
}

std::optional<quint16> X11KeyTables::maskFor(Modifiers modifiers) const {
    quint16 mask = 0;
    for (const Modifier modifier :
         {Modifier::shift, Modifier::control, Modifier::option, Modifier::command}) {
        if (!modifiers.testFlag(modifier))
            continue;
        const auto index = m_modifierIndices.constFind(quint32(modifier));
        if (index == m_modifierIndices.cend())
            return std::nullopt;
        mask |= bit(*index);
    }
    return mask;
}

QList<xcb_keycode_t> X11KeyTables::keysOf(Modifiers modifiers) const {
    QList<xcb_keycode_t> keys;
    for (const Modifier modifier :
         {Modifier::control, Modifier::option, Modifier::command, Modifier::shift}) {
        const auto index = m_modifierIndices.constFind(quint32(modifier));
        if (modifiers.testFlag(modifier) && index != m_modifierIndices.cend())
            keys.append(m_modifierKeys[size_t(*index)].first());
    }
    return keys;
}

QList<xcb_keycode_t> X11KeyTables::heldModifierKeys() const {
    QList<xcb_keycode_t> keys;
    for (int index = 0; index < int(m_modifierKeys.size()); ++index)
        if ((m_lockMask & bit(index)) == 0)
            keys.append(m_modifierKeys[size_t(index)]);
    return keys;
}

bool X11KeyTables::hasSameCharacters(const X11KeyTables& other) const {
    return m_characters == other.m_characters;
}

bool X11KeyTables::hasSameModifiers(const X11KeyTables& other) const {
    return m_modifierIndices == other.m_modifierIndices && m_numLockMask == other.m_numLockMask;
}

std::optional<xcb_keycode_t> usKeyFor(QChar character) {
    for (const UsRow& row : usRows)
        if (const qsizetype place = row.keys.indexOf(character.toLower()); place >= 0)
            return xcb_keycode_t(row.first + place);
    return std::nullopt;
}

std::optional<QChar> usCharacterOf(xkb_keycode_t key) {
    for (const UsRow& row : usRows)
        if (key >= row.first && key < row.first + xkb_keycode_t(row.keys.size()))
            return row.keys.at(qsizetype(key) - row.first);
    return std::nullopt;
}

} // namespace quorvel
