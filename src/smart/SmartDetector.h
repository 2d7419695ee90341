#pragma once

#include "platform/DataDetector.h"
#include "platform/PersonNameTagger.h"
#include "smart/SmartPluginRegistry.h"

namespace quorvel {

/// Says what a text is.
class SmartDetector {
public:
    /// Keeps references to all three.
    SmartDetector(const SmartPluginRegistry& registry, const DataDetector& dataDetector,
                  const PersonNameTagger& nameTagger)
        : m_registry(registry)
        , m_dataDetector(dataDetector)
        , m_nameTagger(nameTagger) {}

    /// The tags of a text, in the order of reports. Depends on nothing but the text.
    QList<ClipboardAutoTag> detectAutoTags(const QString& text) const;

private:
    const SmartPluginRegistry& m_registry;
    const DataDetector& m_dataDetector;
    const PersonNameTagger& m_nameTagger;
};

} // namespace quorvel
