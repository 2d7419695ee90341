#include "smart/masking/CommandSecrets.h"

#include "smart/masking/CharacterBits.h"

#include <algorithm>

namespace quorvel {

namespace {

/// Where the password stands that an option announces.
enum class Place : quint8 {
    next,         ///< -p x
    attached,     ///< -px
    either,       ///< -p x, -px
    afterColon,   ///< -u user:x
    afterPercent, ///< -U user%x
    afterComma,   ///< -u user,x
    login,        ///< -p x, only where the arguments say "login"
};

struct Option {
    QStringView command;
    QStringView option;
    Place place;
};

constexpr Option options[] = {
    {u"curl", u"-u", Place::afterColon},
    {u"curl", u"--user", Place::afterColon},
    {u"curl", u"-U", Place::afterColon},
    {u"curl", u"--proxy-user", Place::afterColon},
    {u"http", u"-a", Place::afterColon},
    {u"xh", u"-a", Place::afterColon},
    {u"mysql", u"-p", Place::attached},
    {u"mysqldump", u"-p", Place::attached},
    {u"mysqladmin", u"-p", Place::attached},
    {u"mariadb", u"-p", Place::attached},
    {u"mysqlimport", u"-p", Place::attached},
    {u"mysqlsh", u"-p", Place::attached},
    {u"sshpass", u"-p", Place::either},
    {u"mongo", u"-p", Place::either},
    {u"mongosh", u"-p", Place::either},
    {u"mongodump", u"-p", Place::either},
    {u"mongorestore", u"-p", Place::either},
    {u"mongoimport", u"-p", Place::either},
    {u"docker", u"-p", Place::login},
    {u"podman", u"-p", Place::login},
    {u"helm", u"-p", Place::login},
    {u"az", u"-p", Place::login},
    {u"oc", u"-p", Place::login},
    {u"unzip", u"-P", Place::either},
    {u"zip", u"-P", Place::either},
    {u"7z", u"-p", Place::attached},
    {u"7za", u"-p", Place::attached},
    {u"rar", u"-hp", Place::attached},
    {u"unrar", u"-p", Place::attached},
    {u"redis-cli", u"-a", Place::next},
    {u"ldapsearch", u"-w", Place::either},
    {u"ldapadd", u"-w", Place::either},
    {u"ldapmodify", u"-w", Place::either},
    {u"ldapwhoami", u"-w", Place::either},
    {u"sqlcmd", u"-P", Place::either},
    {u"bcp", u"-P", Place::either},
    {u"ipmitool", u"-P", Place::next},
    {u"rdesktop", u"-p", Place::either},
    {u"xfreerdp", u"/p:", Place::attached},
    {u"smbclient", u"-U", Place::afterPercent},
    {u"rpcclient", u"-U", Place::afterPercent},
    {u"lftp", u"-u", Place::afterComma},
    {u"openssl", u"pass:", Place::attached},
    {u"vncviewer", u"-passwd", Place::next},
    {u"plink", u"-pw", Place::next},
    {u"pscp", u"-pw", Place::next},
    {u"putty", u"-pw", Place::next},
    {u"psftp", u"-pw", Place::next},
};

constexpr BeginningFilter commandBeginnings = [] {
    BeginningFilter filter;
    for (const Option& option : options) {
        const QStringView name = option.command;
        if (name.size() > 2)
            filter.add(name[0].unicode(), name[1].unicode(), name[2].unicode());
        for (char16_t third = 0; name.size() == 2 && third < 16; ++third)
            filter.add(name[0].unicode(), name[1].unicode(), third);
    }
    return filter;
}();

/// One argument without its quotes.
struct Argument {
    qsizetype start = 0;
    qsizetype end = 0;
};

bool endsCommand(QChar unit) {
    return unit == u'\n' || unit == u'\r' || unit == u'|' || unit == u';' || unit == u'&' ||
           unit == u')' || unit == u'`';
}

qsizetype argumentEnd(QStringView text, qsizetype at, qsizetype limit) {
    QChar quote;
    for (; at < limit; ++at) {
        const QChar unit = text[at];
        const bool isQuote = unit == u'"' || unit == u'\'';
        if (isQuote && quote.isNull())
            quote = unit;
        else if (isQuote && unit == quote)
            quote = QChar();
        else if (quote.isNull() && (hasBit(unit, blankBit) || endsCommand(unit)))
            break;
        else if (hasBit(unit, lineEndBit))
            break;
    }
    return at;
}

SecretRange unquoted(QStringView text, qsizetype start, qsizetype end) {
    const auto isQuote = [&](qsizetype at) { return text[at] == u'"' || text[at] == u'\''; };
    if (end > start && isQuote(start))
        ++start;
    if (end > start && isQuote(end - 1))
        --end;
    return {start, end - start};
}

bool isGiven(QStringView value) {
    return !value.isEmpty() && !value.startsWith(u'$') && !value.startsWith(u'<') &&
           !value.startsWith(u'-') && !value.startsWith(u'{') && !value.startsWith(u'[') &&
           !value.contains(u"***") && !value.startsWith(u"your", Qt::CaseInsensitive) &&
           !value.startsWith(u"xxx", Qt::CaseInsensitive) && value != u"password" &&
           value != u"PASSWORD";
}

class CommandLine {
public:
    CommandLine(QStringView text, qsizetype start, qsizetype wordEnd)
        : m_text(text)
        , m_command(text.mid(start, wordEnd - start)) {
        readArguments(wordEnd);
    }

    CommandReading read() const {
        CommandReading reading{{}, m_end};
        for (qsizetype i = 0; i < m_arguments.size(); ++i)
            for (const Option& option : options)
                if (option.command == m_command)
                    addOf(option, i, reading.hidden);
        return reading;
    }

private:
    void readArguments(qsizetype at) {
        constexpr qsizetype longest = 3000;
        const qsizetype limit = qMin(m_text.size(), at + longest);
        for (;;) {
            while (at < limit &&
                   (bitsOf(m_text[at]) == blankBit ||
                    (m_text[at] == u'\\' && hasBit(unitAt(m_text, at + 1), lineEndBit)) ||
                    (hasBit(m_text[at], lineEndBit) && m_text[at - 1] == u'\\')))
                ++at;
            if (at >= limit || endsCommand(m_text[at]))
                break;
            const qsizetype end = argumentEnd(m_text, at, limit);
            if (end > at)
                m_arguments.append({at, end});
            // What neither is skipped above nor begins an argument must not stop the walk.
            at = qMax(end, at + 1);
        }
        m_end = at;
    }

    QStringView argument(qsizetype index) const {
        if (index >= m_arguments.size())
            return {};
        return m_text.mid(m_arguments[index].start,
                          m_arguments[index].end - m_arguments[index].start);
    }

    void addOf(const Option& option, qsizetype index, QList<SecretRange>& to) const {
        const QStringView written = argument(index);
        if (!written.startsWith(option.option))
            return;
        const bool isAttached = written.size() > option.option.size();
        if (isAttached && (option.place == Place::next || option.place == Place::login))
            return;
        if (!isAttached && (option.place == Place::attached || index + 1 >= m_arguments.size()))
            return;
        if (option.place == Place::login && !hasLogin())
            return;
        const Argument& from = m_arguments[isAttached ? index : index + 1];
        const qsizetype start = isAttached ? from.start + option.option.size() : from.start;
        const SecretRange range = passwordIn(unquoted(m_text, start, from.end), option.place);
        if (isGiven(m_text.mid(range.start, range.length)))
            to.append(range);
    }

    SecretRange passwordIn(SecretRange value, Place place) const {
        const QChar mark = place == Place::afterColon     ? u':'
                           : place == Place::afterPercent ? u'%'
                           : place == Place::afterComma   ? u','
                                                          : u'\0';
        if (mark.isNull())
            return value;
        const qsizetype at = m_text.mid(value.start, value.length).indexOf(mark);
        if (at < 0)
            return {};
        return {value.start + at + 1, value.length - at - 1};
    }

    bool hasLogin() const {
        for (qsizetype i = 0; i < qMin(m_arguments.size(), qsizetype(4)); ++i)
            if (argument(i) == u"login")
                return true;
        return false;
    }

    QStringView m_text;
    QStringView m_command;
    QList<Argument> m_arguments;
    qsizetype m_end = 0;
};

} // namespace

bool isSecretCommand(QStringView word) {
    constexpr qsizetype longest = 12;
    if (word.size() < 2 || word.size() > longest ||
        !commandBeginnings.mayHold(word[0], word[1], word.size() > 2 ? word[2] : QChar(u' ')))
        return false;
    return std::ranges::any_of(options,
                               [word](const Option& option) { return option.command == word; });
}

CommandReading commandSecretsAt(QStringView text, qsizetype start, qsizetype wordEnd) {
    return CommandLine(text, start, wordEnd).read();
}

} // namespace quorvel
