#pragma once

#include <QJsonObject>
#include <QStringList>

#include <functional>
#include <optional>

namespace quorvel::ctl {

/// Everything on standard input; nothing when it cannot be read.
using ReadInput = std::function<std::optional<QString>()>;

/// What follows a command on the command line, word by word.
struct Words {
    QStringList rest;
    const ReadInput& readInput;
    QString problem; ///< What is wrong; empty while nothing is.

    std::optional<QString> take();

    /// Whether the flag stands anywhere; takes it away.
    bool takeFlag(const QString& flag);

    /// The word after the option, wherever it stands.
    std::optional<QString> takeOption(const QString& option);
};

/// Each takes its words and gives the arguments of the request; on a mistake it sets the problem.

QJsonObject noArguments(Words& words);

/// An optional name of a menu.
QJsonObject menuArgument(Words& words);

/// The position of a clip.
QJsonObject positionArgument(Words& words);

/// The position of a clip and how to paste it.
QJsonObject pasteArguments(Words& words);

/// The name of a way to rewrite the clipboard.
QJsonObject toolArgument(Words& words);

/// All the words as one text.
QJsonObject queryArgument(Words& words);
QJsonObject layoutsArgument(Words& words);

QJsonObject inputArgument(Words& words);
QJsonObject newSnippetArguments(Words& words);
QJsonObject snippetArgument(Words& words);

} // namespace quorvel::ctl
