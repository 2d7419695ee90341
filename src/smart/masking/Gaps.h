#pragma once

#include "smart/masking/Labels.h"

#include <optional>

namespace quorvel {

/// What stands between a label and its value.
enum class Separator : quint8 { blank, tab, colon, equals, verb, tag, lineEnd, comma };

struct Gap {
    Separator separator = Separator::blank;

    /// "a=b" without blanks around.
    bool isTight = false;
    qsizetype end = 0;

    /// Other words stand between the label and the separator.
    bool isFar = false;
};

/// Where the value begins that belongs to a label, if anything says that it has one.
std::optional<Gap> gapAfter(QStringView text, const Label& label);

/// Behind the closing marks of the label itself: quotes of a key, brackets of an index, stars of
/// bold type.
qsizetype afterLabelMarks(QStringView text, qsizetype at);

/// Whether a form of "to be" stands there, or a dash that takes its place.
bool isVerbAt(QStringView text, qsizetype at);

/// Whether a unit opens a quotation.
bool isQuote(QChar unit);

} // namespace quorvel
