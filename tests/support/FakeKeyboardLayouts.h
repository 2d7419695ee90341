#pragma once

#include "platform/KeyboardLayouts.h"

namespace quorvel {

/// Layouts in memory; the first one is active at first.
class FakeKeyboardLayouts final : public KeyboardLayouts {
public:
    FakeKeyboardLayouts() = default;
    explicit FakeKeyboardLayouts(const QList<KeyboardLayoutMap>& maps)
        : m_maps(maps) {}

    /// A layout of as many keys as characters, plain ones and with Shift, each at its own place.
    static KeyboardLayoutMap layout(const QString& id, const QString& plain,
                                    const QString& shifted = {}) {
        KeyboardLayoutMap map{.id = id, .name = id.toUpper()};
        for (const auto& [state, keys] : {std::pair(0u, plain), std::pair(shiftKeyState, shifted)})
            for (qsizetype place = 0; place < keys.size(); ++place)
                map.record({quint16(place), state}, keys.at(place));
        return map;
    }

    void configure(const QList<KeyboardLayoutMap>& maps) {
        m_maps = maps;
        emit configurationChanged();
    }

    const QList<KeyboardLayoutMap>& maps() override {
        ++mapReads;
        return m_maps;
    }
    QString activeID() override {
        return m_activeID.isEmpty() && !m_maps.isEmpty() ? m_maps.first().id : m_activeID;
    }
    void activate(const QString& id) override {
        for (const KeyboardLayoutMap& map : qAsConst(m_maps))
            if (map.id == id)
                m_activeID = id;
    }

    int mapReads = 0;

private:
    QList<KeyboardLayoutMap> m_maps;
    QString m_activeID;
};

} // namespace quorvel
