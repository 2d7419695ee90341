#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QString>

namespace quorvel {

/// A key and the modifiers that are held with it, in the platform's own numbering.
struct KeyboardLayoutStroke {
    quint16 keyCode = 0;
    quint32 modifierKeyState = 0; ///< 0 for none, else `shiftKeyState`.

    bool operator==(const KeyboardLayoutStroke&) const = default;
};

inline constexpr quint32 shiftKeyState = 1;

inline size_t qHash(const KeyboardLayoutStroke& stroke, size_t seed = 0) {
    return qHashMulti(seed, stroke.keyCode, stroke.modifierKeyState);
}

/// What the keys give in one layout, without a modifier and with Shift; the number pad is left out.
struct KeyboardLayoutMap {
    QString id;   ///< Unique among the configured layouts, such as "us" or "us(dvorak)".
    QString name; ///< As the user knows it.

    /// Also the combining marks of dead keys.
    QHash<QString, KeyboardLayoutStroke> charToStroke;

    /// A dead key gives the mark as it stands alone, such as "´".
    QHash<KeyboardLayoutStroke, QString> strokeToChar;

    /// The combining marks of the dead keys.
    QHash<KeyboardLayoutStroke, QString> strokeToMark;

    /// To be called in the order in which people would look for a character: the keys that every
    /// keyboard has before others, plain ones before shifted ones. When several strokes give it,
    /// the first one counts.
    void record(const KeyboardLayoutStroke& stroke, const QString& character);

    /// To be called after all `record`: a key that gives the mark alone by itself is preferred.
    void recordDeadKey(const KeyboardLayoutStroke& stroke, const QString& mark,
                       const QString& alone);

    bool operator==(const KeyboardLayoutMap&) const = default;
};

/// The keyboard layouts between which the user can switch. Main thread only.
class KeyboardLayouts : public QObject {
    Q_OBJECT

public:
    /// In the order of the user's configuration; read on first use and again after a change.
    virtual const QList<KeyboardLayoutMap>& maps() = 0;

    /// The layout in which keys are typed now; empty when that is not known.
    virtual QString activeID() = 0;

    /// Keys are typed in this layout from now on; does nothing when it is not configured.
    virtual void activate(const QString& id) = 0;

signals:
    /// `maps` is void; not emitted again before it was asked for anew.
    void configurationChanged();
};

} // namespace quorvel
