#include "platform/text/names/NameTagger.h"

namespace quorvel {

bool NameTagger::hasPersonalName(const QString&) const {
    return false;
}

} // namespace quorvel
