#pragma once

#include "platform/text/addresses/AddressReader.h"

namespace quorvel {

/// An address in Japanese, Chinese or Korean script with the first block or house number at this
/// token, not before `floor`: "東京都渋谷区道玄坂1-2-3", "北京市朝阳区建国路88号",
/// "서울특별시 강남구 테헤란로 152". Empty for none.
AddressPart easternAddressAt(const AddressReader& reader, qsizetype number, qsizetype floor);

} // namespace quorvel
