#include "support/raw/Owner.h"

#include <exception>

int main(int count, char** arguments) {
    try {
        quorvel::raw::Owner(quorvel::raw::ownerOptions({arguments + 1, arguments + count})).run();
    } catch (const std::exception& error) {
        quorvel::raw::fail(error.what());
    }
}
