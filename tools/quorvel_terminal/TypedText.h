#pragma once

#include <string>
#include <string_view>

namespace quorvel {

/// How a command reaches the line editor of a shell as if it were typed or pasted. Texts are UTF-8.

/// The text without control characters and what is not UTF-8, so that nothing in it can end a paste
/// or press a key; line breaks of any kind become "\n", tabs stay, white space at the end goes.
std::string plainText(std::string_view text);

/// A plain text as a paste that shells take in without running it.
std::string pastedForm(std::string_view plain);

/// What can be typed into a shell that knows no paste: one line.
struct TypedForm {
    std::string line;
    bool isCut = false; ///< Lines that could not be joined without another meaning are missing.
};

TypedForm typedForm(std::string_view plain);

/// A text that a terminal shows as it is: control characters as "^[" and the like.
std::string shownForm(std::string_view text);

} // namespace quorvel
