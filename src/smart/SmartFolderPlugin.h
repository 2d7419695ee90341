#pragma once

#include "smart/ClipboardAutoTag.h"
#include "smart/SmartFolderKind.h"

#include <QSet>

#include <memory>
#include <vector>

namespace quorvel {

inline size_t qHash(ClipboardAutoTag tag, size_t seed = 0) {
    return ::qHash(int(tag), seed);
}

/// Says whether an entry belongs into a folder, by its tags.
class SmartFolderPlugin {
public:
    virtual ~SmartFolderPlugin() = default;

    /// "folder." and the folder's name.
    virtual QString id() const = 0;
    virtual SmartFolderKind folder() const = 0;
    virtual bool matches(const QSet<ClipboardAutoTag>& tags) const = 0;
};

/// One for each folder, in the folders' order.
std::vector<std::unique_ptr<SmartFolderPlugin>> makeFolderPlugins();

} // namespace quorvel
