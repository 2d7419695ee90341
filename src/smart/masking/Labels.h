#pragma once

#include <QStringView>

#include <optional>

namespace quorvel {

/// What a label promises of its value; decides how much the value itself must look like a secret.
enum class LabelKind : quint8 {
    password,   ///< a word that a person chose
    secret,     ///< an access key or the like
    token,      ///< a common word: the value must look random
    pin,        ///< a few digits
    code,       ///< a common word: what is around must say that something is opened
    codes,      ///< recovery codes, one or a list
    phrase,     ///< several words
    seed,       ///< a common word: only the words of a wallet count
    answer,     ///< to a question that proves who one is
    pair,       ///< a name and a password
    networkKey, ///< a common word: a network must be named before
    authorization,
    cookie,
    keyLines, ///< the number of lines of a private key follows
};

/// How a label is written.
enum class LabelStyle : quint8 {
    word,       ///< in prose
    plain,      ///< in a script that runs words together
    identifier, ///< the end of a compound name
    constant,   ///< DB_PASSWORD
    option,     ///< --password, /password
    element,    ///< <password>
    parameter,  ///< ?password=, &password=
};

struct Label {
    LabelKind kind = LabelKind::password;
    LabelStyle style = LabelStyle::word;

    /// The whole name that the label is the end of.
    qsizetype start = 0;
    qsizetype end = 0;
};

/// Whether the end of a word is worth a look with `labelEndingAt`.
bool mayEndLabel(QStringView text, qsizetype wordStart, qsizetype wordEnd);

/// The label that a word ends, together with the words before it.
std::optional<Label> labelEndingAt(QStringView text, qsizetype wordEnd);

/// The label that begins there, in scripts that put no blanks between words or join words freely.
std::optional<Label> labelStartingAt(QStringView text, qsizetype start);

/// Whether a folded name ends with a label or holds one, as "userPassword" does.
bool holdsLabel(QStringView name);

} // namespace quorvel
