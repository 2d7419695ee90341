#include "platform/text/dates/DateFinder.h"

namespace quorvel {

void DateFinder::find(const Tokens&, QList<DataMatch>&) const {}

} // namespace quorvel
