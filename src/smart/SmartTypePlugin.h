#pragma once

#include "smart/SmartDetectionUtilities.h"

#include <QString>

#include <memory>
#include <vector>

namespace quorvel {

/// Says whether a tag applies to a text.
class SmartTypePlugin {
public:
    virtual ~SmartTypePlugin() = default;

    /// "type." and the tag's name.
    virtual QString id() const = 0;
    virtual ClipboardAutoTag tag() const = 0;
    virtual bool matches(const QString& text, const SmartDetectionUtilities& utilities) const = 0;
};

/// One for each tag, in the registry's order. Conditions stop at the first that fails, so a text
/// that is no single value costs none of the dear tests.
std::vector<std::unique_ptr<SmartTypePlugin>> makeTypePlugins();

} // namespace quorvel
