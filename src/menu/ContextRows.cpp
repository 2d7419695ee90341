#include "menu/ContextRows.h"

#include "foundation/Text.h"
#include "menu/ClipItems.h"
#include "menu/VisibleParts.h"
#include "paste/ContextPastePayload.h"
#include "smart/context/CardGroups.h"
#include "smart/context/TrackerLinks.h"
#include "smart/rules/TextShapes.h"

#include <QStringBuilder>

#include <array>

namespace quorvel {

namespace {

/// The rows of one text as they come together.
class Rows {
public:
    /// Keeps references to both.
    Rows(const QString& analysed, const MenuBuild& build)
        : text(analysed)
        , snapshot(build.content().textAnalyses.snapshot(analysed))
        , isSingleValue(isLikelySingleValue(analysed))
        , visible(analysed, snapshot,
                  build.content().preferences.isOn(keys::sensitiveDataMaskingEnabled)
                      ? VisibleParts::Masking::on
                      : VisibleParts::Masking::off)
        , m_build(build) {}

    const QString& text;
    const TextAnalysisSnapshot snapshot;
    const bool isSingleValue;
    const VisibleParts visible;

    void act(const char* title, QStringView symbol, MenuAction action, const QString& about) {
        m_items.append({.title = m_build.text(title),
                        .action = action,
                        .representedObject = about,
                        .symbol = symbol.toString()});
    }

    /// A row whose title shows something.
    void act(const char* title, const QString& shown, QStringView symbol, MenuAction action,
             const QString& about) {
        const QString line = singleLine(shown);
        const QString cut = shortened(line, titleLimit, titleTail);
        m_items.append({.title = m_build.content().strings.format(QString::fromLatin1(title), cut),
                        .action = action,
                        .representedObject = about,
                        .symbol = symbol.toString(),
                        .toolTip = cut == line ? QString() : shown});
    }

    void paste(const char* title, const QString& value, const QString& shown, QStringView symbol) {
        act(title, shown, symbol, MenuAction::pasteContextValue,
            ContextPastePayload{value, std::nullopt}.text());
    }
    void paste(const char* title, const std::optional<QString>& value, QStringView symbol) {
        if (value)
            paste(title, *value, *value, symbol);
    }

    QStringList bases(const keys::BaseUrls& key) const {
        return m_build.content().preferences.baseUrls(key);
    }
    const QList<MenuItem>& items() const { return m_items; }

private:
    const MenuBuild& m_build;
    QList<MenuItem> m_items;
};

bool opensInBrowser(const QUrl& url) {
    constexpr std::array schemes{QStringView(u"http"), QStringView(u"https"), QStringView(u"ftp"),
                                 QStringView(u"ftps")};
    return std::find(schemes.begin(), schemes.end(), url.scheme()) != schemes.end();
}

QString linkText(const QUrl& url) {
    return url.toString(QUrl::FullyEncoded);
}

/// Without what all links have.
QString shownLink(const QUrl& url) {
    return url.toString(QUrl::RemoveScheme).sliced(2);
}

void addParameterRows(Rows& rows) {
    const auto& parameters = rows.snapshot.urlQueryParameters;
    qsizetype added = 0;
    for (qsizetype i = 0; i < parameters.size() && added < mostPartRows; ++i) {
        if (parameters.at(i).second.isEmpty())
            continue;
        rows.paste("action.pasteUrlQueryParam.format", parameters.at(i).second,
                   rows.visible.queryParameter(i), u"scissors");
        ++added;
    }
}

/// Of a link that stands in prose only the whole is worth a row.
void addLinkRows(Rows& rows) {
    const auto& snapshot = rows.snapshot;
    if (snapshot.url && opensInBrowser(*snapshot.url))
        rows.act("action.openInBrowser", u"globe", MenuAction::openRecentURL,
                 linkText(*snapshot.url));
    if (!rows.isSingleValue)
        return;
    rows.paste("action.pasteUrlDomain.format", snapshot.urlHost, u"network");
    if (snapshot.urlLastSegment)
        rows.paste("action.pasteUrlLastSegment.format", *snapshot.urlLastSegment,
                   rows.visible.lastPathSegment(), u"link");
    addParameterRows(rows);
}

void addMailRows(Rows& rows) {
    if (rows.snapshot.mailLink && rows.isSingleValue)
        rows.act("action.composeEmail", u"envelope", MenuAction::composeEmail,
                 linkText(*rows.snapshot.mailLink));
}

void addPhoneRows(Rows& rows) {
    const auto& snapshot = rows.snapshot;
    if (!snapshot.phone || (rows.isSingleValue && snapshot.cardDigits))
        return;
    if (rows.isSingleValue)
        rows.act("action.callNumber", u"phone.arrow.up.right", MenuAction::callRecentPhoneNumber,
                 *snapshot.phone);
    rows.paste("action.pastePhoneNumber.format", snapshot.phone, u"phone");
    if (!rows.isSingleValue)
        return;
    rows.paste("action.pastePhoneDigits.format", snapshot.phoneDigits, u"number");
    rows.paste("action.pastePhoneCountry.format", snapshot.phoneCountryCode, u"globe");
    rows.paste("action.pastePhoneLocal.format", snapshot.phoneLocalNumber, u"phone");
}

void addCardRows(Rows& rows) {
    const auto& digits = rows.snapshot.cardDigits;
    if (!digits || !rows.isSingleValue)
        return;
    const QString grouped = groupedCard(*digits);
    rows.paste("action.pasteCardGrouped.format", grouped, rows.visible.card(grouped),
               u"creditcard");
    rows.paste("action.pasteCardDigits.format", *digits, rows.visible.card(*digits), u"number");
}

/// A decimal number has a dot as well.
bool isDecimal(const QStringList& parts) {
    return parts.size() == 2 && std::all_of(parts.begin(), parts.end(), [](const QString& part) {
               return std::all_of(part.begin(), part.end(), [](QChar c) { return c.isDigit(); });
           });
}

/// Links, numbers and commands have rows that suit them better.
void addDotRows(Rows& rows) {
    const auto& snapshot = rows.snapshot;
    const bool isOther = !snapshot.linkRanges.isEmpty() || snapshot.phone || snapshot.cardDigits ||
                         snapshot.terminalCommand;
    if (!snapshot.dotParts || isOther || !rows.isSingleValue || isDecimal(*snapshot.dotParts))
        return;
    QStringList parts = *snapshot.dotParts;
    parts.removeDuplicates();
    for (const QString& part : parts.first(std::min(parts.size(), mostPartRows)))
        rows.paste("action.pasteDotPart.format", part, rows.visible.dotPart(part), u"scissors");
}

/// In prose only what is written as trackers write it counts: there are words such as "top-10".
bool isReference(const QString& key, const Rows& rows) {
    return (rows.isSingleValue || rows.text.contains(key)) && rows.visible.showsReference(key);
}

void addIssueRows(Rows& rows) {
    const auto& key = rows.snapshot.jiraIssueKey;
    if (!key || !isReference(*key, rows))
        return;
    const QList<QUrl> links = issueLinks(rows.bases(keys::ticketTrackerBaseURLs), *key);
    const auto shown = [&](const QUrl& link) {
        return links.size() == 1 ? *key : QString(*key % u" (" % link.authority() % u')');
    };
    for (const QUrl& link : links)
        rows.paste("action.pasteJiraLink.format", linkText(link), shown(link), u"link");
    for (const QUrl& link : links)
        rows.act("action.openJiraIssue.format", shown(link), u"globe",
                 MenuAction::openRecentJiraIssue, linkText(link));
    rows.paste("action.pasteJiraKey.format", key, u"ticket");
}

void addPullRequestRows(Rows& rows) {
    const auto& number = rows.snapshot.pullRequestID;
    if (!number)
        return;
    const QList<QUrl> links = pullRequestLinks(rows.bases(keys::pullRequestBaseURLs), *number);
    rows.paste("action.pasteIssueNumber.format", number, u"number");
    for (const QUrl& link : links)
        rows.paste("action.pastePullRequestLink.format", linkText(link), shownLink(link), u"link");
    for (const QUrl& link : links)
        rows.act("action.openPullRequest.format", shownLink(link), u"arrow.triangle.pull",
                 MenuAction::openRecentPullRequest, linkText(link));
}

void addCommandRows(Rows& rows) {
    const auto& command = rows.snapshot.terminalCommand;
    if (!command)
        return;
    rows.act("action.openInTerminal", u"terminal", MenuAction::openTerminalCommand, *command);
    rows.act("action.runInTerminal", u"play", MenuAction::runTerminalCommand, *command);
}

constexpr std::array groups{addLinkRows, addMailRows,  addPhoneRows,       addCardRows,
                            addDotRows,  addIssueRows, addPullRequestRows, addCommandRows};

} // namespace

QList<MenuItem> contextItems(const QString& text, const MenuBuild& build) {
    if (text.isEmpty())
        return {};
    Rows rows(text, build);
    for (const auto add : groups)
        add(rows);
    return rows.items();
}

} // namespace quorvel
