#pragma once

#include "platform/DataDetector.h"
#include "platform/PersonNameTagger.h"

namespace quorvel {

/// What reads words and numbers of human languages.
class TextServices {
public:
    virtual ~TextServices() = default;

    virtual const DataDetector& dataDetector() const = 0;
    virtual const PersonNameTagger& nameTagger() const = 0;
};

} // namespace quorvel
