#include "menu/MenuTimings.h"

#include "foundation/Log.h"

namespace quorvel {

namespace {
const QString prefix = QStringLiteral("[MenuPerf] ");
}

MenuTimings::MenuTimings(const Preferences& preferences, const Clock& clock)
    : m_preferences(preferences)
    , m_clock(clock) {}

bool MenuTimings::areOn() const {
    return qEnvironmentVariable("QUORVEL_MENU_TIMINGS") == QLatin1StringView("1") ||
           m_preferences.isOn(keys::debugMenuTimings);
}

void MenuTimings::opened() {
    if (!areOn())
        return;
    m_menuPerfOpenStartUptime = m_clock.uptime();
    m_didLogMenuFirstPaint = false;
    m_didLogMenuFirstHydrate = false;
    logLine(prefix + QStringLiteral("open"));
}

void MenuTimings::reached(const QString& label) const {
    if (!areOn())
        return;
    if (!m_menuPerfOpenStartUptime)
        return logLine(prefix + label);
    const double seconds = m_clock.uptime() - *m_menuPerfOpenStartUptime;
    logLine(QStringLiteral("%1%2: +%3ms").arg(prefix, label).arg(qRound64(seconds * 1000)));
}

void MenuTimings::hydrated(const QString& submenu, qsizetype chunk, qsizetype chunks) const {
    if (std::exchange(m_didLogMenuFirstHydrate, true))
        return;
    reached(QStringLiteral("first-hydrate[%1] chunk=%2/%3").arg(submenu).arg(chunk).arg(chunks));
}

void MenuTimings::firstPaint() {
    if (std::exchange(m_didLogMenuFirstPaint, true))
        return;
    reached(QStringLiteral("first-paint"));
}

void MenuTimings::closed() {
    reached(QStringLiteral("close"));
    m_menuPerfOpenStartUptime.reset();
}

} // namespace quorvel
