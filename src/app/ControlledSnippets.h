#pragma once

#include "app/ControlCommands.h"

namespace quorvel::controlled {

/// The commands of the control tool about snippets. A snippet is named by "snippet": its
/// identifier, or its number in the list, from 1.

/// In the library's order: root snippets, then the groups'.
ControlReply listSnippets(const ControlledParts& parts, const QJsonObject& arguments);

/// A snippet of "text", with "title" and in the group of the name "group" when they are given; the
/// answer is its identifier.
ControlReply addSnippet(const ControlledParts& parts, const QJsonObject& arguments);

ControlReply removeSnippet(const ControlledParts& parts, const QJsonObject& arguments);
ControlReply pasteSnippet(const ControlledParts& parts, const QJsonObject& arguments);

} // namespace quorvel::controlled
