#include "FuzzText.h"

#include "platform/text/OwnTextServices.h"
#include "smart/SmartDetector.h"

#include <QSet>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const quorvel::OwnTextServices services(quorvel::Region{});
    static const quorvel::SmartPluginRegistry registry;
    static const quorvel::SmartDetector detector(registry, services.dataDetector(),
                                                 services.nameTagger());
    const auto tags = detector.detectAutoTags(quorvel::fuzz::textOf(data, size));
    quorvel::fuzz::require(QSet(tags.begin(), tags.end()).size() == tags.size());
    return 0;
}
