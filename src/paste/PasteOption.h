#pragma once

#include <QString>

#include <array>
#include <optional>

namespace quorvel {

/// The ways to paste.
enum class PasteOption { normal, plainText, withEdit, keepClipboard };

inline constexpr std::array<QStringView, 4> pasteOptionNames{u"normal", u"plainText", u"withEdit",
                                                             u"keepClipboard"};

inline QString rawName(PasteOption option) {
    return pasteOptionNames[std::size_t(option)].toString();
}

/// Nothing for a text that names none.
inline std::optional<PasteOption> pasteOption(QStringView rawName) {
    for (std::size_t i = 0; i < pasteOptionNames.size(); ++i)
        if (pasteOptionNames[i] == rawName)
            return static_cast<PasteOption>(i);
    return std::nullopt;
}

} // namespace quorvel
