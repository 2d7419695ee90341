#pragma once

#include "app/preferences/Preferences.h"
#include "paste/layouts/KeyboardLayoutVariants.h"

#include <optional>

namespace quorvel {

enum class CycleStep {
    start, ///< With a text that this cycle has not met.
    goOn,  ///< With the text that it began with, or with what it has made of it.
};

/// Which variant is next in its turn. The cycle goes through all variants in their order and then
/// comes back to the text itself. It starts with the first variant when that is likely what was
/// meant, else with the one behind the last target. Absent when there are no variants.
std::optional<KeyboardLayoutPasteVariant> nextVariant(const KeyboardLayoutReading& reading,
                                                      const QString& text,
                                                      const QString& lastTargetID, CycleStep step);

/// Turns a text into what it would be in one layout after the other, a layout for each call.
/// Remembers its place in the preferences, and until the program ends also the text.
class LayoutCycle {
public:
    LayoutCycle(const KeyboardLayoutVariants& variants, Preferences& preferences)
        : m_variants(variants)
        , m_preferences(preferences) {}

    /// What to paste in place of the text; the text may be what the call before has given. Absent
    /// when there is nothing to turn it into; then nothing is remembered.
    std::optional<KeyboardLayoutPasteVariant> next(const QString& text);

private:
    const KeyboardLayoutVariants& m_variants;
    Preferences& m_preferences;
    QString m_original;  ///< What the cycle began with.
    QString m_lastValue; ///< What it has made of it last.
};

} // namespace quorvel
