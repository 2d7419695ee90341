#pragma once

#include <QStringView>

/// Names of places, folded; several words have one blank between.
namespace quorvel::places {

bool isCountry(QStringView name);
bool isCity(QStringView name);

/// A state, province or county with a name of its own.
bool isRegion(QStringView name);

/// A state or province of North America or Australia by its code: "ny", "on", "nsw".
bool isRegionCode(QStringView word);

/// "г", "обл", "район": announces or follows a town or region.
bool isPlaceWord(QStringView word);

/// The part after the hyphen of a Japanese or Korean district in Latin letters: "ku", "shi".
bool isDistrictEnd(QStringView word);

} // namespace quorvel::places
