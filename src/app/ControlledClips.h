#pragma once

#include "app/ControlCommands.h"

namespace quorvel::controlled {

/// The commands of the control tool about clips. A clip is named by its "position" in the history,
/// from 1.

/// The first "limit" clips, newest first; all of them when it is 0 or absent.
ControlReply listClips(const ControlledParts& parts, const QJsonObject& arguments);

/// Clips, then snippets in which "text" is found as the menu's search finds them.
ControlReply search(const ControlledParts& parts, const QJsonObject& arguments);

/// Puts "text" onto the clipboard.
ControlReply copy(const ControlledParts& parts, const QJsonObject& arguments);

/// By "mode": one of the ways to paste, "normal" unless told.
ControlReply pasteClip(const ControlledParts& parts, const QJsonObject& arguments);

/// Rewrites the text on the clipboard by "tool".
ControlReply transform(const ControlledParts& parts, const QJsonObject& arguments);

ControlReply pinClip(const ControlledParts& parts, const QJsonObject& arguments);
ControlReply unpinClip(const ControlledParts& parts, const QJsonObject& arguments);
ControlReply deleteClip(const ControlledParts& parts, const QJsonObject& arguments);

} // namespace quorvel::controlled
