#include "support/raw/Reader.h"

#include <exception>

using namespace quorvel::raw;

int main(int count, char** arguments) {
    const std::vector<std::string> words(arguments + 1, arguments + count);
    try {
        if (words == std::vector<std::string>{"--print-time"}) {
            say(std::to_string(RawDisplay().serverTime()));
            return EXIT_SUCCESS;
        }
        return Reader(readerOptions(words)).run() ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& error) {
        fail(error.what());
    }
}
