#include "smart/SmartFolderKind.h"

namespace quorvel {

namespace {

constexpr std::array<QStringView, smartFolderCount> names{
    u"screenshots", u"images",    u"tickets", u"pullRequests", u"code",       u"terminalCommands",
    u"cards",       u"colors",    u"names",   u"emails",       u"links",      u"phones",
    u"dates",       u"addresses", u"uuids",   u"ibans",        u"ipAddresses"};

constexpr auto inOrder = [] {
    std::array<SmartFolderKind, smartFolderCount> folders{};
    for (int i = 0; i < smartFolderCount; ++i)
        folders[std::size_t(i)] = static_cast<SmartFolderKind>(i);
    return folders;
}();

} // namespace

const std::array<SmartFolderKind, smartFolderCount>& allSmartFolders() {
    return inOrder;
}

QString rawName(SmartFolderKind folder) {
    return names[std::size_t(folder)].toString();
}

QString titleKey(SmartFolderKind folder) {
    return QStringLiteral("settings.smartFolder.") + rawName(folder);
}

} // namespace quorvel
