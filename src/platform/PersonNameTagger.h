#pragma once

#include <QString>

namespace quorvel {

/// Tells the names of people from other capitalised words.
class PersonNameTagger {
public:
    virtual ~PersonNameTagger() = default;

    /// Whether any word of a short text is part of a person's name.
    virtual bool hasPersonalName(const QString& text) const = 0;
};

} // namespace quorvel
