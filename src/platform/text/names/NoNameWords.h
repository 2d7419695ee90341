#pragma once

#include <QStringView>

namespace quorvel {

/// Whether a folded word is one that the names of people do not hold: function words, titles of
/// jobs, words of places, organisations, products, greetings and the calendar.
bool isNoNameWord(QStringView word);

} // namespace quorvel
