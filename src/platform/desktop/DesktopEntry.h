#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace quorvel {

/// What a program's desktop file says about it.
struct DesktopEntry {
    QString id;             ///< Without ".desktop"; filled in by whoever knows the file's place.
    QString name;           ///< In the best of the user's languages.
    QString startupWmClass; ///< Empty when not given.
    QString executable;     ///< Base name of the program itself; empty for interpreters.
    bool isHidden = false;  ///< Stands for "there is no such program".
    bool isInMenus = true;
};

/// The names under which a text in this locale may be filed ("de_AT@euro" gives "de_AT@euro",
/// "de_AT", "de@euro", "de"), best first; the encoding is dropped.
QStringList localeVariants(const QString& locale);

/// Reads the text of a desktop file. `locales` are variants, best first. Absent when it is not an
/// application or has no name; anything odd in it is passed over.
std::optional<DesktopEntry> parseDesktopEntry(const QByteArray& text, const QStringList& locales);

} // namespace quorvel
