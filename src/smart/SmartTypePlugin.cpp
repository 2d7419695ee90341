#include "smart/SmartTypePlugin.h"

namespace quorvel {

namespace {

using Utilities = SmartDetectionUtilities;
using Tag = ClipboardAutoTag;

bool neverForText(const Utilities&) {
    return false; // pictures get these tags where they are captured
}
bool isTicket(const Utilities& u) {
    return u.isLikelySingleValue() && (u.hasJiraIssueKey() || u.looksLikeIssueTrackerURL());
}
bool isPullRequest(const Utilities& u) {
    return u.isLikelySingleValue() && u.looksLikePullRequestReference();
}
template <Tag data>
bool isData(const Utilities& u) {
    return u.isLikelySingleValue() && u.containsDetectedDataTag(data);
}
bool isJiraIssue(const Utilities& u) {
    return u.isLikelySingleValue() && u.hasJiraIssueKey();
}
bool isPhone(const Utilities& u) {
    return isData<Tag::phone>(u) && !u.hasValidCardNumber();
}
bool isCard(const Utilities& u) {
    return u.isLikelySingleValue() && u.hasValidCardNumber();
}
bool isColor(const Utilities& u) {
    return u.isLikelySingleValue() && u.hasColorValue();
}
bool isName(const Utilities& u) {
    return u.looksLikePersonName();
}
bool isIBAN(const Utilities& u) {
    return u.isLikelySingleValue() && u.hasIBANCandidate();
}
bool isIP(const Utilities& u) {
    return u.isLikelySingleValue() && u.hasIPv4Candidate();
}
bool isUUID(const Utilities& u) {
    return u.isLikelySingleValue() && u.hasUUIDOutsideLinks();
}
bool isJSONText(const Utilities& u) {
    return u.isJSON();
}
bool isCode(const Utilities& u) {
    return u.looksLikeCode();
}
bool isMultilineText(const Utilities& u) {
    return u.isMultiline();
}
bool isTerminalCommand(const Utilities& u) {
    return u.looksLikeTerminalCommand();
}

/// A value with two fields; what it tests is part of its type.
template <Tag itsTag, bool (*test)(const Utilities&)>
class TypePlugin final : public SmartTypePlugin {
public:
    QString id() const override { return m_id; }
    ClipboardAutoTag tag() const override { return m_tag; }
    bool matches(const QString&, const SmartDetectionUtilities& utilities) const override {
        return test(utilities);
    }

private:
    QString m_id = QStringLiteral("type.") + rawName(itsTag);
    ClipboardAutoTag m_tag = itsTag;
};

using ScreenshotTypePlugin = TypePlugin<Tag::screenshot, neverForText>;
using ImageTypePlugin = TypePlugin<Tag::image, neverForText>;
using TicketTypePlugin = TypePlugin<Tag::ticket, isTicket>;
using PullRequestTypePlugin = TypePlugin<Tag::pullRequest, isPullRequest>;
using URLTypePlugin = TypePlugin<Tag::url, isData<Tag::url>>;
using JiraIssueTypePlugin = TypePlugin<Tag::jiraIssue, isJiraIssue>;
using EmailTypePlugin = TypePlugin<Tag::email, isData<Tag::email>>;
using PhoneTypePlugin = TypePlugin<Tag::phone, isPhone>;
using DateTypePlugin = TypePlugin<Tag::date, isData<Tag::date>>;
using AddressTypePlugin = TypePlugin<Tag::address, isData<Tag::address>>;
using CardTypePlugin = TypePlugin<Tag::card, isCard>;
using ColorTypePlugin = TypePlugin<Tag::color, isColor>;
using NameTypePlugin = TypePlugin<Tag::name, isName>;
using IBANTypePlugin = TypePlugin<Tag::iban, isIBAN>;
using IPTypePlugin = TypePlugin<Tag::ip, isIP>;
using UUIDTypePlugin = TypePlugin<Tag::uuid, isUUID>;
using JSONTypePlugin = TypePlugin<Tag::json, isJSONText>;
using CodeTypePlugin = TypePlugin<Tag::code, isCode>;
using MultilineTypePlugin = TypePlugin<Tag::multiline, isMultilineText>;
using TerminalCommandTypePlugin = TypePlugin<Tag::terminalCommand, isTerminalCommand>;

template <typename... Plugins>
std::vector<std::unique_ptr<SmartTypePlugin>> makeAll() {
    std::vector<std::unique_ptr<SmartTypePlugin>> plugins;
    plugins.reserve(sizeof...(Plugins));
    (plugins.push_back(std::make_unique<Plugins>()), ...);
    return plugins;
}

} // namespace

std::vector<std::unique_ptr<SmartTypePlugin>> makeTypePlugins() {
    return makeAll<ScreenshotTypePlugin, ImageTypePlugin, TicketTypePlugin, PullRequestTypePlugin,
                   URLTypePlugin, JiraIssueTypePlugin, EmailTypePlugin, PhoneTypePlugin,
                   DateTypePlugin, AddressTypePlugin, CardTypePlugin, ColorTypePlugin,
                   NameTypePlugin, IBANTypePlugin, IPTypePlugin, UUIDTypePlugin, JSONTypePlugin,
                   CodeTypePlugin, MultilineTypePlugin, TerminalCommandTypePlugin>();
}

} // namespace quorvel
