#include "smart/SmartFolderPlugin.h"

namespace quorvel {

namespace {

using Tag = ClipboardAutoTag;
using Tags = QSet<ClipboardAutoTag>;
using Folder = SmartFolderKind;

template <Tag... wanted>
bool hasAnyOf(const Tags& tags) {
    return (tags.contains(wanted) || ...);
}
bool isPictureButNoScreenshot(const Tags& tags) {
    return tags.contains(Tag::image) && !tags.contains(Tag::screenshot);
}

/// A value with two fields; what it tests is part of its type.
template <Folder itsFolder, bool (*test)(const Tags&)>
class FolderPlugin final : public SmartFolderPlugin {
public:
    QString id() const override { return m_id; }
    SmartFolderKind folder() const override { return m_folder; }
    bool matches(const Tags& tags) const override { return test(tags); }

private:
    QString m_id = QStringLiteral("folder.") + rawName(itsFolder);
    SmartFolderKind m_folder = itsFolder;
};

using ScreenshotsFolderPlugin = FolderPlugin<Folder::screenshots, hasAnyOf<Tag::screenshot>>;
using ImagesFolderPlugin = FolderPlugin<Folder::images, isPictureButNoScreenshot>;
using TicketsFolderPlugin = FolderPlugin<Folder::tickets, hasAnyOf<Tag::ticket, Tag::jiraIssue>>;
using PullRequestsFolderPlugin = FolderPlugin<Folder::pullRequests, hasAnyOf<Tag::pullRequest>>;
using CodeFolderPlugin = FolderPlugin<Folder::code, hasAnyOf<Tag::code, Tag::json>>;
using TerminalCommandsFolderPlugin =
    FolderPlugin<Folder::terminalCommands, hasAnyOf<Tag::terminalCommand>>;
using CardsFolderPlugin = FolderPlugin<Folder::cards, hasAnyOf<Tag::card>>;
using ColorsFolderPlugin = FolderPlugin<Folder::colors, hasAnyOf<Tag::color>>;
using NamesFolderPlugin = FolderPlugin<Folder::names, hasAnyOf<Tag::name>>;
using EmailsFolderPlugin = FolderPlugin<Folder::emails, hasAnyOf<Tag::email>>;
using LinksFolderPlugin = FolderPlugin<Folder::links, hasAnyOf<Tag::url>>;
using PhonesFolderPlugin = FolderPlugin<Folder::phones, hasAnyOf<Tag::phone>>;
using DatesFolderPlugin = FolderPlugin<Folder::dates, hasAnyOf<Tag::date>>;
using AddressesFolderPlugin = FolderPlugin<Folder::addresses, hasAnyOf<Tag::address>>;
using UUIDsFolderPlugin = FolderPlugin<Folder::uuids, hasAnyOf<Tag::uuid>>;
using IBANsFolderPlugin = FolderPlugin<Folder::ibans, hasAnyOf<Tag::iban>>;
using IPAddressesFolderPlugin = FolderPlugin<Folder::ipAddresses, hasAnyOf<Tag::ip>>;

template <typename... Plugins>
std::vector<std::unique_ptr<SmartFolderPlugin>> makeAll() {
    std::vector<std::unique_ptr<SmartFolderPlugin>> plugins;
    plugins.reserve(sizeof...(Plugins));
    (plugins.push_back(std::make_unique<Plugins>()), ...);
    return plugins;
}

} // namespace

std::vector<std::unique_ptr<SmartFolderPlugin>> makeFolderPlugins() {
    return makeAll<ScreenshotsFolderPlugin, ImagesFolderPlugin, TicketsFolderPlugin,
                   PullRequestsFolderPlugin, CodeFolderPlugin, TerminalCommandsFolderPlugin,
                   CardsFolderPlugin, ColorsFolderPlugin, NamesFolderPlugin, EmailsFolderPlugin,
                   LinksFolderPlugin, PhonesFolderPlugin, DatesFolderPlugin, AddressesFolderPlugin,
                   UUIDsFolderPlugin, IBANsFolderPlugin, IPAddressesFolderPlugin>();
}

} // namespace quorvel
