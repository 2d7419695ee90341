#pragma once

#include <QStringView>

/// What single folded words say in a postal address. Weights are in tenths: a street is taken at
/// `enoughEvidence`, be it by its own words or by the town around it.
namespace quorvel::addressWords {

inline constexpr int enoughEvidence = 30;

/// "street", "ave", "court": a word that ends an English street; 0 for none.
int suffixWeight(QStringView word);

/// A word with more before it that is a street with its number behind: "hauptstrasse",
/// "kungsgatan", "damstraat"; 0 for none.
int gluedWeight(QStringView word);

/// A word of its own that ends a street with its number behind: "strasse", "utca", "namesti".
int trailingWeight(QStringView word);

/// A word that begins a street: "rue", "calle", "via", "ул".
int prefixWeight(QStringView word);

/// A prefix that needs a dot or stroke behind it: "c", "pl".
bool needsDot(QStringView word);

/// "strasse", "platz": a prefix where "der" or "des" follows.
bool takesGenitive(QStringView word);

/// A prefix whose house number usually stands before it: "rue", "avenue".
bool takesNumberBefore(QStringView word);

/// "am", "unter", "zum": begins a German street that has no street word.
bool isPlacePreposition(QStringView word);

/// "alte", "grosse": belongs to the street that follows.
bool isStreetAdjective(QStringView word);

/// "de", "la", "of", "den": small words inside names of streets and towns.
bool isConnector(QStringView word);

/// "no", "nr", "д": announces a house number.
bool isNumberWord(QStringView word);

/// "bis", "ter": continues a house number.
bool isNumberTail(QStringView word);

/// "apt", "suite", "кв", "piso": announces a part of a building.
bool isUnit(QStringView word);

/// "floor", "этаж", "og": a part of a building named after its number.
bool isUnitAfter(QStringView word);

/// "izq", "links": the side of a stair.
bool isSide(QStringView word);

/// "north", "nw".
bool isDirection(QStringView word);

/// "km", "uhr", "euro": says that the number before it counts something.
bool isQuantity(QStringView word);

/// "hour", "star", "bedroom", and months: a number before it is seldom a house number.
bool isCounted(QStringView word);

/// "january", "montag": no street without further evidence.
bool isDay(QStringView word);

/// "at", "to", "visit": often stands before an address.
bool leadsIn(QStringView word);

/// "in", "since", "the": a number after it that looks like a year is one.
bool leadsYear(QStringView word);

/// "tisch", "version", "seite": a capitalised word whose number is no house number.
bool isNumbered(QStringView word);

/// "one" to "ten".
bool isSpelledNumber(QStringView word);

/// "highway", "route": has a number for its name.
bool isHighway(QStringView word);

/// "tel", "email": what follows is no longer the address.
bool isContact(QStringView word);

} // namespace quorvel::addressWords
