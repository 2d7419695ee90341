#include "platform/text/addresses/AddressFinder.h"

namespace quorvel {

void AddressFinder::find(const Tokens&, QList<DataMatch>&) const {}

} // namespace quorvel
