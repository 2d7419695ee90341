#pragma once

#include <QHashFunctions>
#include <QString>

#include <array>

namespace quorvel {

/// The smart folders, in their order everywhere.
enum class SmartFolderKind {
    screenshots,
    images,
    tickets,
    pullRequests,
    code,
    terminalCommands,
    cards,
    colors,
    names,
    emails,
    links,
    phones,
    dates,
    addresses,
    uuids,
    ibans,
    ipAddresses,
};

inline constexpr int smartFolderCount = 17;

/// All of them, in order.
const std::array<SmartFolderKind, smartFolderCount>& allSmartFolders();

QString rawName(SmartFolderKind folder);

/// Key of the folder's title; with ".description" behind it the key of its description.
QString titleKey(SmartFolderKind folder);

inline size_t qHash(SmartFolderKind folder, size_t seed = 0) {
    return ::qHash(int(folder), seed);
}

} // namespace quorvel
