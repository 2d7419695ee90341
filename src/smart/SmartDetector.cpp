#include "smart/SmartDetector.h"

#include "smart/TextFacts.h"

#include <algorithm>

namespace quorvel {

namespace {

bool isBlank(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
}

/// By ordinal, but commands before lines.
int reportPosition(ClipboardAutoTag tag) {
    switch (tag) {
    case ClipboardAutoTag::terminalCommand:
        return int(ClipboardAutoTag::multiline);
    case ClipboardAutoTag::multiline:
        return int(ClipboardAutoTag::terminalCommand);
    default:
        return int(tag);
    }
}

} // namespace

QList<ClipboardAutoTag> SmartDetector::detectAutoTags(const QString& text) const {
    if (isBlank(text))
        return {};
    TextFacts facts(text, m_dataDetector, m_nameTagger);
    const auto tags = m_registry.tags(text, facts.utilities());
    QList<ClipboardAutoTag> reported(tags.begin(), tags.end());
    std::sort(reported.begin(), reported.end(), [](ClipboardAutoTag a, ClipboardAutoTag b) {
        return reportPosition(a) < reportPosition(b);
    });
    return reported;
}

} // namespace quorvel
