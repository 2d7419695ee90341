#include "FuzzText.h"

#include "smart/masking/SecretMasker.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = quorvel::fuzz::textOf(data, size);
    const auto secrets = quorvel::secretsIn(text);
    quorvel::fuzz::requireRanges(secrets, text);
    const QString masked = quorvel::maskedSecrets(text);
    quorvel::fuzz::require(secrets.isEmpty() == (masked == text) || text.contains(u'•'));
    quorvel::maskedSecrets(masked);
    return 0;
}
