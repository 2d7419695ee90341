#include "platform/desktop/DesktopEntry.h"

#include <QHash>

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

/// Programs that only run others: their name says nothing about whose window it is.
constexpr std::array launchers = {
    "bash", "env",     "flatpak", "gtk-launch", "java", "perl", "pkexec",
    "sh",   "python3", "ruby",    "snap",       "sudo", "wine", "xdg-open",
};

using Values = QHash<QByteArray, QByteArray>;

Values mainGroup(const QByteArray& text) {
    Values values;
    bool inside = false;
    for (const QByteArray& raw : text.split('\n')) {
        const QByteArray line = raw.trimmed();
        const qsizetype equals = line.indexOf('=');
        if (line.startsWith('['))
            inside = line == "[Desktop Entry]";
        else if (inside && equals > 0 && !line.startsWith('#'))
            values.insert(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
    }
    return values;
}

char unescaped(char letter) {
    switch (letter) {
    case 's':
        return ' ';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    default:
        return letter;
    }
}

QString textOf(const QByteArray& value) {
    QByteArray plain;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const bool escape = value[i] == '\\' && i + 1 < value.size();
        plain += escape ? unescaped(value[++i]) : value[i];
    }
    return QString::fromUtf8(plain);
}

QString localizedName(const Values& values, const QStringList& locales) {
    for (const QString& locale : locales) {
        const auto found = values.constFind("Name[" + locale.toUtf8() + ']');
        if (found != values.cend() && !found->isEmpty())
            return textOf(*found);
    }
    return textOf(values.value("Name"));
}

/// The first word of a command line, with a quoted one taken whole.
QString takeWord(QString& command) {
    command = command.trimmed();
    const bool quoted = command.startsWith(u'"');
    const qsizetype start = quoted ? 1 : 0;
    qsizetype end = command.indexOf(quoted ? u'"' : u' ', start);
    end = end < 0 ? command.size() : end;
    const QString word = command.mid(start, end - start);
    command = command.mid(end + 1);
    return word;
}

QString executableOf(const QByteArray& exec) {
    QString command = textOf(exec);
    QString word = takeWord(command);
    if (word.section(u'/', -1) == u"env")
        do
            word = takeWord(command);
        while (word.contains(u'='));
    const QString base = word.section(u'/', -1);
    const bool launcher = std::any_of(launchers.begin(), launchers.end(), [&](const char* name) {
        return base == QLatin1String(name);
    });
    return launcher ? QString() : base;
}

bool isTrue(const Values& values, const char* key) {
    return values.value(key) == "true";
}

} // namespace

QStringList localeVariants(const QString& locale) {
    const QString modifier = locale.contains(u'@') ? u'@' + locale.section(u'@', 1) : QString();
    const QString place = locale.section(u'@', 0, 0).section(u'.', 0, 0);
    const QString language = place.section(u'_', 0, 0);
    if (language.isEmpty() || language == u"C" || language == u"POSIX")
        return {};
    QStringList variants = {place + modifier, place, language + modifier, language};
    variants.removeDuplicates();
    return variants;
}

std::optional<DesktopEntry> parseDesktopEntry(const QByteArray& text, const QStringList& locales) {
    const Values values = mainGroup(text);
    DesktopEntry entry;
    entry.isHidden = isTrue(values, "Hidden");
    if (entry.isHidden)
        return entry;
    entry.name = localizedName(values, locales);
    if (entry.name.isEmpty() || values.value("Type") != "Application")
        return std::nullopt;
    entry.startupWmClass = textOf(values.value("StartupWMClass"));
    // What runs inside a terminal has no window of its own.
    if (!isTrue(values, "Terminal"))
        entry.executable = executableOf(values.value("Exec"));
    entry.isInMenus = !isTrue(values, "NoDisplay");
    return entry;
}

} // namespace quorvel
