#include "smart/masking/CommandSecrets.h"

#include "smart/masking/CharacterBits.h"
#include "smart/masking/CommandLine.h"
#include "smart/masking/CommandTable.h"
#include "smart/masking/PlaceholderWords.h"

#include <algorithm>
#include <optional>

namespace quorvel {

namespace {

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

/// Programs that read a password from a pipe.
constexpr QStringView pipeReaders[] = {
    u"sudo -S", u"sudo -kS",   u"sudo --stdin",    u"--password-stdin", u"passwd --stdin",
    u"kinit",   u"cryptsetup", u"--passphrase-fd", u"--passin stdin",   u"chpasswd",
};

bool isGiven(QStringView value) {
    return !value.isEmpty() && !value.startsWith(u'$') && !value.startsWith(u'<') &&
           !value.startsWith(u'-') && !value.startsWith(u'{') && !value.startsWith(u'[') &&
           !value.contains(u"***") && !value.startsWith(u"your", Qt::CaseInsensitive) &&
           !value.startsWith(u"xxx", Qt::CaseInsensitive) && !isPlaceholderWord(value) &&
           !value.startsWith(u"user@");
}

/// Whether the place alone says that it is a password, or only together with its look.
enum class Trust : quint8 { explicitly, ifNoWord };

/// What cannot be a word of prose.
bool isNoWord(QStringView value) {
    return std::ranges::any_of(value, [](QChar unit) { return hasBit(unit, digitBit); }) ||
           (value.size() >= 8 && std::ranges::any_of(value.chopped(1), [](QChar unit) {
                return hasBit(unit, symbolBit) && unit != u'\'' && unit != u'"';
            }));
}

/// Reads the arguments of one program by the rows of the table.
class CommandReader {
public:
    CommandReader(QStringView text, qsizetype start, qsizetype wordEnd)
        : m_text(text)
        , m_command(text.mid(start, wordEnd - start))
        , m_line(text, wordEnd) {}

    CommandReading read() const {
        CommandReading reading{{}, m_line.end()};
        for (const Option& option : options)
            if (option.command == m_command)
                readOption(option, reading.hidden);
        return reading;
    }

private:
    void readOption(const Option& option, QList<SecretRange>& to) const {
        if (option.place == Place::piped)
            return addPiped(to);
        if (const auto index = fixedIndex(option.place))
            return addAt(*index, option, to);
        for (qsizetype i = 0; i < m_line.count(); ++i)
            if (m_line.argument(i).startsWith(option.option))
                addOf(option, i, to);
    }

    static std::optional<qsizetype> fixedIndex(Place place) {
        switch (place) {
        case Place::second:
            return 1;
        case Place::third:
            return 2;
        case Place::fourth:
            return 3;
        case Place::sixth:
            return 5;
        default:
            return {};
        }
    }

    void addAt(qsizetype index, const Option& option, QList<SecretRange>& to) const {
        const bool isMeant = option.option.isEmpty() || m_line.argument(0) == option.option;
        const QStringView written = m_line.argument(index);
        if (isMeant && !written.isEmpty() && !written.startsWith(u'/') && written != u"*")
            addGiven(m_line.unquoted(index, 0), option, to);
    }

    void addOf(const Option& option, qsizetype index, QList<SecretRange>& to) const {
        const bool isAttached = m_line.argument(index).size() > option.option.size();
        const bool isName = option.option.endsWith(u':');
        if (option.place == Place::striking)
            return addStriking(option, isAttached && !isName ? m_line.count() : index + 1, to);
        if (isAttached && (option.place == Place::next || option.place == Place::login))
            return;
        if (!isAttached && (option.place == Place::attached || index + 1 >= m_line.count()))
            return;
        if (option.place == Place::login && !hasLogin())
            return;
        const SecretRange value = isAttached ? m_line.unquoted(index, option.option.size())
                                             : m_line.unquoted(index + 1, 0);
        addGiven(passwordIn(value, option.place), option, to);
    }

    /// A digit before the password says how it is written.
    void addStriking(const Option& option, qsizetype index, QList<SecretRange>& to) const {
        if (m_line.argument(index).size() == 1)
            ++index;
        if (index < m_line.count() && !m_line.argument(index).startsWith(u'/'))
            addGiven(m_line.unquoted(index, 0), option, to);
    }

    void addPiped(QList<SecretRange>& to) const {
        constexpr qsizetype reach = 80;
        const QStringView behind = m_text.mid(m_line.end(), reach);
        const auto isRead = [behind](QStringView reader) { return behind.contains(reader); };
        if (!behind.startsWith(u'|') || m_line.count() == 0 ||
            !std::ranges::any_of(pipeReaders, isRead))
            return;
        const SecretRange value = m_line.unquoted(m_line.count() - 1, 0);
        add(behind.contains(u"chpasswd") ? passwordIn(value, Place::afterColon) : value,
            Trust::explicitly, to);
    }

    void addGiven(SecretRange range, const Option& option, QList<SecretRange>& to) const {
        const bool isExplicit = option.place != Place::striking &&
                                (option.option.startsWith(u'-') || option.option.endsWith(u':'));
        add(range, isExplicit ? Trust::explicitly : Trust::ifNoWord, to);
    }

    void add(SecretRange range, Trust trust, QList<SecretRange>& to) const {
        const QStringView value = m_text.mid(range.start, range.length);
        if (isGiven(value) && (trust == Trust::explicitly || isNoWord(value)))
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
        constexpr qsizetype reach = 4;
        for (qsizetype i = 0; i < qMin(m_line.count(), reach); ++i)
            if (m_line.argument(i) == u"login")
                return true;
        return false;
    }

    QStringView m_text;
    QStringView m_command;
    CommandLine m_line;
};

} // namespace

bool isSecretCommand(QStringView word) {
    constexpr qsizetype longest = 16;
    if (word.size() < 2 || word.size() > longest ||
        !commandBeginnings.mayHold(word[0], word[1], word.size() > 2 ? word[2] : QChar(u' ')))
        return false;
    return std::ranges::any_of(options,
                               [word](const Option& option) { return option.command == word; });
}

CommandReading commandSecretsAt(QStringView text, qsizetype start, qsizetype wordEnd) {
    return CommandReader(text, start, wordEnd).read();
}

} // namespace quorvel
