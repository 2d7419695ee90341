#pragma once

#include "support/raw/RawDisplay.h"

#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace quorvel::raw {

/// What the words of a command line mean for some options.
template <typename Options>
struct OptionTable {
    using Apply = std::function<void(Options&, const std::string&)>;

    std::map<std::string, Apply> flags;
    std::map<std::string, Apply> withValue;
    Apply other; ///< For every other word.
};

/// A word that makes no sense ends the program with a message.
template <typename Options>
Options readOptions(const std::vector<std::string>& arguments, const OptionTable<Options>& table) {
    Options options;
    for (auto word = arguments.begin(); word != arguments.end(); ++word) {
        if (const auto flag = table.flags.find(*word); flag != table.flags.end()) {
            flag->second(options, {});
        } else if (const auto option = table.withValue.find(*word);
                   option != table.withValue.end()) {
            if (++word == arguments.end())
                fail(option->first + " needs a value");
            option->second(options, *word);
        } else {
            table.other(options, *word);
        }
    }
    return options;
}

inline long number(const std::string& text) {
    std::size_t end = 0;
    long value = -1;
    try {
        value = std::stol(text, &end);
    } catch (const std::logic_error&) {
        end = 0;
    }
    if (text.empty() || end != text.size() || value < 0)
        fail("not a number: " + text);
    return value;
}

} // namespace quorvel::raw
