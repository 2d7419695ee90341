#pragma once

#include "platform/PersonNameTagger.h"

namespace quorvel {

/// Knows people's names from lists of given and family names of many cultures.
class NameTagger final : public PersonNameTagger {
public:
    bool hasPersonalName(const QString& text) const override;
};

} // namespace quorvel
