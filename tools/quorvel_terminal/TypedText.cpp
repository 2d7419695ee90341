#include "TypedText.h"

#include <cstdint>
#include <vector>

namespace quorvel {

namespace {

constexpr std::string_view pasteBegin = "\033[200~";
constexpr std::string_view pasteEnd = "\033[201~";

/// Length of the well-formed sequence at the beginning of the text; 0 for what is none.
std::size_t sequenceLength(std::string_view text) {
    const auto lead = static_cast<std::uint8_t>(text[0]);
    const std::size_t length = lead < 0x80             ? 1
                               : (lead & 0xe0) == 0xc0 ? 2
                               : (lead & 0xf0) == 0xe0 ? 3
                               : (lead & 0xf8) == 0xf0 ? 4
                                                       : 0;
    if (length == 0 || length > text.size())
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((static_cast<std::uint8_t>(text[i]) & 0xc0) != 0x80)
            return 0;
    return length;
}

/// Of both sets, C0 and C1.
bool isControl(std::string_view sequence) {
    const auto first = static_cast<std::uint8_t>(sequence[0]);
    if (sequence.size() == 1)
        return first < 0x20 || first == 0x7f;
    return sequence.size() == 2 && first == 0xc2 && static_cast<std::uint8_t>(sequence[1]) < 0xa0;
}

/// Calls `use` for each well-formed character of the text.
template <typename Use>
void forEachCharacter(std::string_view text, const Use& use) {
    while (!text.empty()) {
        const std::size_t length = sequenceLength(text);
        if (length > 0)
            use(text.substr(0, length));
        text.remove_prefix(length > 0 ? length : 1);
    }
}

std::string withPlainLineBreaks(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (!isPair)
            result += text[i] == '\r' ? '\n' : text[i];
    }
    return result;
}

std::vector<std::string_view> lines(std::string_view text) {
    std::vector<std::string_view> found;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        found.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    found.push_back(text);
    return found;
}

std::string_view withoutBlanksBehind(std::string_view line) {
    while (!line.empty() && (line.back() == ' ' || line.back() == '\t'))
        line.remove_suffix(1);
    return line;
}

/// Inside quotes, comments and here-documents line breaks count.
bool mayCountLineBreaks(std::string_view text) {
    return text.find_first_of("'\"`#(){}") != std::string_view::npos ||
           text.find("<<") != std::string_view::npos;
}

/// How a line that is not the last one goes on.
enum class Continuation { none, escaped, byOperator };

Continuation continuation(std::string_view line) {
    if (line.ends_with("\\"))
        return line.ends_with("\\\\") ? Continuation::none : Continuation::escaped;
    const std::string_view visible = withoutBlanksBehind(line);
    if (visible.ends_with("\\|") || visible.ends_with("\\&&"))
        return Continuation::none;
    return visible.ends_with("|") || visible.ends_with("&&") ? Continuation::byOperator
                                                             : Continuation::none;
}

TypedForm joined(const std::vector<std::string_view>& all) {
    TypedForm form;
    for (std::size_t i = 0; i + 1 < all.size(); ++i) {
        const Continuation how = continuation(all[i]);
        if (how == Continuation::none)
            return {std::string(all[0]), true};
        const bool isEscaped = how == Continuation::escaped;
        form.line += isEscaped ? all[i].substr(0, all[i].size() - 1) : all[i];
        form.line += isEscaped ? "" : " ";
    }
    form.line += all.back();
    return form;
}

} // namespace

std::string plainText(std::string_view text) {
    std::string plain;
    forEachCharacter(withPlainLineBreaks(text), [&](std::string_view character) {
        if (!isControl(character) || character == "\n" || character == "\t")
            plain += character;
    });
    plain.erase(plain.find_last_not_of(" \t\n") + 1);
    return plain;
}

std::string pastedForm(std::string_view plain) {
    std::string pasted(pasteBegin);
    for (const char c : plain)
        pasted += c == '\n' ? '\r' : c;
    return pasted.append(pasteEnd);
}

TypedForm typedForm(std::string_view plain) {
    const auto all = lines(plain);
    TypedForm form = all.size() > 1 && mayCountLineBreaks(plain)
                         ? TypedForm{std::string(all[0]), true}
                         : joined(all);
    for (char& c : form.line)
        c = c == '\t' ? ' ' : c; // it would complete what stands before it
    return form;
}

std::string shownForm(std::string_view text) {
    constexpr char caretOffset = 0x40;
    std::string shown;
    forEachCharacter(text, [&](std::string_view character) {
        const bool isKept = character == "\n" || character == "\t";
        if (!isControl(character) || isKept)
            shown += character;
        else if (character.size() == 1)
            shown.append({'^', char(character[0] ^ caretOffset)});
        else
            shown += '?';
    });
    return shown;
}

} // namespace quorvel
