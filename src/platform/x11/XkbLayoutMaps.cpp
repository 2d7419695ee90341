#include "platform/x11/XkbLayoutMaps.h"

#include <algorithm>
#include <array>
#include <memory>

#include <xkbcommon/xkbcommon-keysyms.h>

namespace quorvel {

namespace {

struct Unref {
    void operator()(xkb_state* state) const { xkb_state_unref(state); }
};

struct DeadKey {
    xkb_keysym_t symbol;
    char16_t mark;
    char16_t alone;
};

constexpr std::array deadKeys{
    DeadKey{XKB_KEY_dead_grave, u'\u0300', u'`'},
    DeadKey{XKB_KEY_dead_acute, u'\u0301', u'\u00B4'},
    DeadKey{XKB_KEY_dead_circumflex, u'\u0302', u'^'},
    DeadKey{XKB_KEY_dead_tilde, u'\u0303', u'~'},
    DeadKey{XKB_KEY_dead_macron, u'\u0304', u'\u00AF'},
    DeadKey{XKB_KEY_dead_breve, u'\u0306', u'\u02D8'},
    DeadKey{XKB_KEY_dead_abovedot, u'\u0307', u'\u02D9'},
    DeadKey{XKB_KEY_dead_diaeresis, u'\u0308', u'\u00A8'},
    DeadKey{XKB_KEY_dead_abovering, u'\u030A', u'\u02DA'},
    DeadKey{XKB_KEY_dead_doubleacute, u'\u030B', u'\u02DD'},
    DeadKey{XKB_KEY_dead_caron, u'\u030C', u'\u02C7'},
    DeadKey{XKB_KEY_dead_psili, u'\u0313', u'\u1FBF'},
    DeadKey{XKB_KEY_dead_dasia, u'\u0314', u'\u1FFE'},
    DeadKey{XKB_KEY_dead_cedilla, u'\u0327', u'\u00B8'},
    DeadKey{XKB_KEY_dead_ogonek, u'\u0328', u'\u02DB'},
    DeadKey{XKB_KEY_dead_iota, u'\u0345', u'\u037A'},
};

const DeadKey* deadKey(xkb_keysym_t symbol) {
    for (const DeadKey& key : deadKeys)
        if (key.symbol == symbol)
            return &key;
    return nullptr;
}

enum class KeyPlace {
    main,      ///< On every keyboard.
    extra,     ///< Only on those of some countries, where other layouts repeat a sign.
    elsewhere, ///< The number pad, and keys of single functions that may give brackets as well.
};

/// By the name of the key in the keymap: a letter and two digits for its row and column, or a name
/// of its own.
KeyPlace placeOf(xkb_keymap* keymap, xkb_keycode_t key) {
    const char* given = xkb_keymap_key_get_name(keymap, key);
    const QLatin1StringView name(given ? given : "");
    static constexpr std::array extras{QLatin1StringView("LSGT"), QLatin1StringView("AB11"),
                                       QLatin1StringView("AE13")};
    static constexpr std::array mains{QLatin1StringView("TLDE"), QLatin1StringView("BKSL"),
                                      QLatin1StringView("SPCE")};
    if (std::find(extras.begin(), extras.end(), name) != extras.end())
        return KeyPlace::extra;
    const auto isDigit = [&](int place) {
        return name[place] >= QLatin1Char('0') && name[place] <= QLatin1Char('9');
    };
    const bool hasPlace = name.size() == 4 && name[0] == QLatin1Char('A') && isDigit(2) &&
                          isDigit(3) && name[1] >= QLatin1Char('A') && name[1] <= QLatin1Char('E');
    const bool isMain = hasPlace || std::find(mains.begin(), mains.end(), name) != mains.end();
    return isMain ? KeyPlace::main : KeyPlace::elsewhere;
}

struct KeyOutput {
    KeyboardLayoutStroke stroke;
    QString text; ///< Empty for a dead key.
    const DeadKey* dead = nullptr;
};

QString textOf(xkb_state* state, xkb_keycode_t key) {
    std::array<char, 64> bytes{};
    const int size = xkb_state_key_get_utf8(state, key, bytes.data(), bytes.size());
    return size > 0 && size < int(bytes.size()) ? QString::fromUtf8(bytes.data(), size) : QString();
}

/// What the keys at a place give, with these modifiers.
void addOutputs(QList<KeyOutput>& list, xkb_state* state, KeyPlace place, quint32 modifiers) {
    xkb_keymap* keymap = xkb_state_get_keymap(state);
    for (auto key = xkb_keymap_min_keycode(keymap); key <= xkb_keymap_max_keycode(keymap); ++key) {
        if (placeOf(keymap, key) != place)
            continue;
        const KeyOutput output{{quint16(key), modifiers},
                               textOf(state, key),
                               deadKey(xkb_state_key_get_one_sym(state, key))};
        if (output.dead || !output.text.isEmpty())
            list.append(output);
    }
}

/// What all strokes give: the main keys plain, then with Shift, then the others.
QList<KeyOutput> outputs(xkb_keymap* keymap, xkb_layout_index_t group) {
    QList<KeyOutput> list;
    const std::unique_ptr<xkb_state, Unref> state(xkb_state_new(keymap));
    const auto shift = xkb_keymap_mod_get_index(keymap, XKB_MOD_NAME_SHIFT);
    for (const KeyPlace place : {KeyPlace::main, KeyPlace::extra})
        for (const quint32 modifiers : {0u, shiftKeyState}) {
            const bool isShifted = modifiers != 0 && shift != XKB_MOD_INVALID;
            xkb_state_update_mask(state.get(), isShifted ? 1u << shift : 0, 0, 0, 0, 0, group);
            addOutputs(list, state.get(), place, modifiers);
        }
    return list;
}

KeyboardLayoutMap mapOf(xkb_keymap* keymap, xkb_layout_index_t group, const QString& id) {
    const char* name = xkb_keymap_layout_get_name(keymap, group);
    KeyboardLayoutMap map{.id = id, .name = name ? QString::fromUtf8(name) : id};
    const QList<KeyOutput> all = outputs(keymap, group);
    for (const KeyOutput& output : all)
        if (!output.dead)
            map.record(output.stroke, output.text);
    for (const KeyOutput& output : all)
        if (output.dead)
            map.recordDeadKey(output.stroke, QChar(output.dead->mark), QChar(output.dead->alone));
    return map;
}

} // namespace

QStringList layoutIDs(QStringView layouts, QStringView variants) {
    QStringList ids;
    const auto variantList = variants.split(u',');
    for (const QStringView layout : layouts.split(u',')) {
        const QStringView variant = variantList.value(ids.size()).trimmed();
        const QString name = layout.trimmed().toString();
        ids.append(variant.isEmpty() ? name : u"%1(%2)"_qs.arg(name, variant));
    }
    return ids;
}

QString layoutID(xkb_keymap* keymap, const QStringList& ids, xkb_layout_index_t group) {
    if (group >= xkb_keymap_num_layouts(keymap))
        return {};
    const QString id = ids.value(qsizetype(group));
    return id.isEmpty() ? QString::fromUtf8(xkb_keymap_layout_get_name(keymap, group)) : id;
}

QList<KeyboardLayoutMap> keyboardLayoutMaps(xkb_keymap* keymap, const QStringList& ids) {
    QList<KeyboardLayoutMap> maps;
    for (xkb_layout_index_t group = 0; group < xkb_keymap_num_layouts(keymap); ++group) {
        const QString id = layoutID(keymap, ids, group);
        const bool isKnown = std::any_of(
            maps.begin(), maps.end(), [&](const KeyboardLayoutMap& map) { return map.id == id; });
        KeyboardLayoutMap map = mapOf(keymap, group, id);
        if (!id.isEmpty() && !isKnown && !map.charToStroke.isEmpty())
            maps.append(std::move(map));
    }
    return maps;
}

} // namespace quorvel
