#pragma once

#include "app/preferences/Preferences.h"
#include "foundation/StringTable.h"

#include <functional>

namespace quorvel {

/// Chooses the line that teaches something, once for each opening of the menu. Until option mode
/// was used often enough, every second opening tells of it.
class MenuHints {
public:
    /// `random(n)` gives a number from 0 to n - 1, all equally likely.
    using Random = std::function<int(int)>;

    MenuHints(Preferences& preferences, const StringTable& strings, Random random);

    /// Counts an opening and chooses; empty when hints are switched off.
    QString choose();

    /// Any one of the list, without counting; empty when hints are switched off.
    QString draw() const;

    void countOptionModeUse();
    void switchOff();

    static constexpr int optionModeIsKnownAfter = 50;

private:
    Preferences& m_preferences;
    const StringTable& m_strings;
    Random m_random;
};

} // namespace quorvel
