#pragma once

#include "app/preferences/Preferences.h"
#include "foundation/Clock.h"

#include <QString>

#include <optional>

namespace quorvel {

/// Log lines that tell how long after its opening the menu reached which state. Written when the
/// environment variable QUORVEL_MENU_TIMINGS is "1" or the preference for it is set.
class MenuTimings {
public:
    MenuTimings(const Preferences& preferences, const Clock& clock);

    void opened();

    /// One of the moments of an opening, such as "close".
    void reached(const QString& label) const;

    /// A part of a submenu was filled; told once for each opening.
    void hydrated(const QString& submenu, qsizetype chunk, qsizetype chunks) const;

    /// A frame since the opening or an update; the first one is told as such.
    void painted();
    void closed();

private:
    bool areOn() const;

    const Preferences& m_preferences;
    const Clock& m_clock;
    std::optional<double> m_menuPerfOpenStartUptime; ///< Seconds.
    bool m_didLogMenuFirstPaint = false;
    mutable bool m_didLogMenuFirstHydrate = false;
};

} // namespace quorvel
