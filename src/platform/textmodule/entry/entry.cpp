#include "platform/text/OwnTextServices.h"

#include <QtGlobal>

extern "C" Q_DECL_EXPORT quorvel::TextServices* quorvelMakeTextServices(const QString& country) {
    using quorvel::Region;
    return new quorvel::OwnTextServices(country.isEmpty() ? Region::ofUser()
                                                          : Region::ofCountry(country));
}
