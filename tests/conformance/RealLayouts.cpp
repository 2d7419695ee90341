#include "conformance/RealLayouts.h"

#include <QRegularExpression>

#include <stdexcept>

namespace quorvel {

namespace {

QList<KeyboardLayoutMap> compiled(const QString& id) {
    const QStringList parts = id.chopped(id.endsWith(u')') ? 1 : 0).split(u'(');
    const QByteArray layout = parts.first().toLatin1();
    const QByteArray variant = parts.value(1).toLatin1();
    const xkb_rule_names names{"evdev", "pc105", layout.constData(), variant.constData(), ""};
    xkb_context* context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
    xkb_keymap* keymap = xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS);
    QList<KeyboardLayoutMap> maps;
    if (keymap)
        maps = keyboardLayoutMaps(keymap, layoutIDs(parts.first(), parts.value(1)));
    xkb_keymap_unref(keymap);
    xkb_context_unref(context);
    return maps;
}

} // namespace

QList<KeyboardLayoutMap> realLayouts(const QString& ids) {
    static QHash<QString, QList<KeyboardLayoutMap>> known;
    QList<KeyboardLayoutMap> maps;
    for (const QString& id : ids.split(u',')) {
        if (!known.contains(id))
            known.insert(id, compiled(id));
        if (known.value(id).size() != 1)
            throw std::runtime_error("no layout " + id.toStdString());
        maps += known.value(id);
    }
    return maps;
}

} // namespace quorvel
