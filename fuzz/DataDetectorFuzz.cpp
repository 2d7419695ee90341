#include "FuzzText.h"

#include "platform/text/TextDataDetector.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const quorvel::TextDataDetector detector(quorvel::Region{});
    const QString text = quorvel::fuzz::textOf(data, size);
    quorvel::fuzz::requireRanges(detector.matches(text), text);
    return 0;
}
