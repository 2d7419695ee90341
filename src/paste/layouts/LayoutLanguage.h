#pragma once

#include "paste/layouts/TextCost.h"
#include "platform/KeyboardLayouts.h"

namespace quorvel {

/// What people write with a layout: the languages of its country, as far as they are known and
/// written in its letters; else every known language with these letters; else just letters.
class LayoutLanguage {
public:
    explicit LayoutLanguage(const KeyboardLayoutMap& map);

    /// How unlikely the text is in the likeliest of the languages, in bits.
    double cost(QStringView text) const;

    /// Whether a text of this cost is likelier than its letters in any order.
    bool looksRight(QStringView text, double cost) const;

    /// Of most of its letters.
    QChar::Script script() const { return m_unknown.script; }

private:
    QList<const LetterPairs*> m_languages;
    UnknownLanguage m_unknown;
};

} // namespace quorvel
