#pragma once

#include "smart/masking/Labels.h"

namespace quorvel {

/// Short labels are the end of many ordinary words.
enum class LabelBoundary : quint8 { none, wordStart };

/// Folded, without the blanks, hyphens and underscores between its words.
struct LabelForm {
    QStringView letters;
    LabelKind kind;
    LabelBoundary boundary = LabelBoundary::none;
};

} // namespace quorvel
