#include "platform/text/addresses/EasternAddress.h"

#include "platform/text/addresses/AddressWords.h"
#include "platform/text/addresses/Postcodes.h"
#include "platform/text/addresses/WordSet.h"

namespace quorvel {

namespace {

constexpr char16_t prefectures[] = u"北海道 青森県 岩手県 宮城県 秋田県 山形県 福島県 茨城県 "
                                   u"栃木県 群馬県 埼玉県 千葉県 東京都 神奈川県 "
                                   u"新潟県 富山県 石川県 福井県 山梨県 長野県 岐阜県 静岡県 "
                                   u"愛知県 三重県 滋賀県 京都府 大阪府 兵庫県 奈良県 "
                                   u"和歌山県 鳥取県 島根県 岡山県 広島県 山口県 徳島県 香川県 "
                                   u"愛媛県 高知県 福岡県 佐賀県 長崎県 熊本県 "
                                   u"大分県 宮崎県 鹿児島県 沖縄県";

/// What ends the name of a town or district, and of a street.
constexpr QStringView townEnds = u"市区町村郡省县縣區镇鎮乡鄉州";
constexpr QStringView streetEnds = u"路街道巷弄段里";

/// What ends the sentence before an address, and what no name of a place ends with.
constexpr QStringView breaks = u"はでにをへ、在于於是址到至的：";
constexpr QStringView particles = u"はでにをがもとへやの";

/// Behind a number these go on with blocks, houses and rooms.
constexpr std::u16string_view joints[] = {
    u"丁目", u"番地の", u"番地", u"番", u"号室", u"號室", u"号楼", u"号", u"號", u"条",
    u"線",   u"の",     u"ノ",   u"ー", u"段",   u"巷",   u"弄",   u"室", u"楼", u"樓",
    u"层",   u"層",     u"階",   u"栋", u"棟",   u"幢",   u"单元", u"座",
};
constexpr std::u16string_view buildings[] = {
    u"大厦", u"大廈",   u"广场",       u"中心",   u"楼", u"座", u"栋", u"小区", u"花园",
    u"ビル", u"タワー", u"マンション", u"ハイツ", u"荘", u"館", u"层", u"層",   u"苑"};

constexpr int prefectureWeight = 20;
constexpr int townWeight = 15;
constexpr int streetWeight = 15;
constexpr int blockWeight = 15;

bool isEastern(QChar c) {
    return c >= QChar(0x3005) && c < QChar(0xD7A4);
}

bool isKorean(QChar c) {
    return c >= QChar(0xAC00) && c < QChar(0xD7A4);
}

/// What the text before a number says.
struct Area {
    qsizetype start = 0;
    int weight = 0;
};

bool isPrefectureEnd(QStringView text, qsizetype at, qsizetype& start) {
    if (!QStringView(u"都道府県").contains(text[at]))
        return false;
    for (const qsizetype length : {4, 3}) {
        start = at + 1 - length;
        if (start >= 0 && WordSet<prefectures>::contains(text.mid(start, length)))
            return true;
    }
    return false;
}

Area areaOf(QStringView text) {
    Area area;
    bool hasTown = false;
    bool hasPrefecture = false;
    const auto restart = [&](qsizetype at, bool isPrefecture) {
        area = {at, isPrefecture ? prefectureWeight : 0};
        hasPrefecture = isPrefecture;
        hasTown = false;
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        qsizetype start = 0;
        const bool isInside = i > area.start && i + 1 < text.size();
        if (isPrefectureEnd(text, i, start))
            restart(start, true);
        else if (breaks.contains(text[i]) || (!isEastern(text[i]) && !text[i].isSpace()) ||
                 (text[i].isSpace() && !hasTown && !hasPrefecture))
            restart(i + 1, false);
        else if (townEnds.contains(text[i]) && (isInside || hasPrefecture) && !hasTown) {
            area.weight += townWeight;
            hasTown = true;
        }
    }
    const QStringView name = text.mid(area.start);
    if (name.size() < 2 || particles.contains(name.back()))
        return {};
    const bool isStreet = name.size() > 2 && streetEnds.contains(name.back());
    // "国道5号" numbers the road itself.
    const bool isRoad =
        name.back() == u'道' && QStringView(u"国県府都市").contains(name[name.size() - 2]);
    if ((!hasTown && !hasPrefecture && !isStreet) || isRoad)
        return {};
    area.weight += isStreet ? streetWeight : 0;
    return area;
}

std::u16string_view jointOf(QStringView word) {
    for (const std::u16string_view joint : joints)
        if (word.startsWith(QStringView(joint)))
            return joint;
    return {};
}

/// The numbers of blocks and houses from this token on, with the name of a building.
AddressPart blockAt(const AddressReader& reader, qsizetype number) {
    constexpr int mostDigits = 5;
    constexpr int mostTokens = 14;
    AddressPart block{number, number, 0};
    qsizetype at = number;
    while (at - number < mostTokens && reader.digits(at) > 0 && reader.digits(at) <= mostDigits) {
        block.end = ++at;
        const bool isHyphen = reader.isMarkOf(at, u"-－−‐–—") && reader.isGlued(at);
        if (isHyphen && reader.isNumber(at + 1)) {
            block.weight = blockWeight;
            ++at;
            continue;
        }
        if (!reader.isWord(at) || !reader.isGlued(at))
            break;
        const QStringView word = reader.tokens().written(at);
        const std::u16string_view joint = jointOf(word);
        if (joint.empty())
            return block.weight > 0 ? block : AddressPart{};
        block.weight = blockWeight;
        block.end = at + 1;
        const QStringView rest = word.sliced(qsizetype(joint.size()));
        const bool isBuilding = std::ranges::any_of(
            buildings, [rest](std::u16string_view end) { return rest.endsWith(QStringView(end)); });
        const bool goesOn = rest.size() <= 2 && reader.isGlued(at + 1) && reader.isNumber(at + 1);
        if (rest.isEmpty() || isBuilding || goesOn) {
            ++at;
            continue;
        }
        block.unusedTail = rest.size();
        break;
    }
    return block;
}

/// "〒100-0001" or "100020" before this token.
qsizetype postcodeBefore(const AddressReader& reader, qsizetype first, qsizetype floor) {
    for (qsizetype at = std::max(floor, first - 4); at < first; ++at) {
        const AddressPart code = postcodeAt(reader, at);
        const bool reaches =
            !code.isEmpty() &&
            (code.end == first || (code.end + 1 == first && reader.isMarkOf(code.end, u",、)）")));
        if (reaches)
            return reader.isMarkOf(at - 1, u"〒(（") && at > floor ? at - 1 : at;
    }
    return first;
}

/// Behind the building's name that stands alone after the block: "六本木ヒルズ森タワー 12階".
AddressPart withBuilding(const AddressReader& reader, AddressPart block) {
    const qsizetype name = block.end;
    const bool isName = block.unusedTail == 0 && reader.isWord(name) &&
                        reader.continuesLine(name) && !reader.isGlued(name) &&
                        isEastern(reader.tokens().written(name).front());
    if (!isName)
        return block;
    const QStringView written = reader.tokens().written(name);
    const bool isSentence =
        std::ranges::any_of(written, [](QChar c) { return breaks.contains(c); });
    qsizetype end = name + 1;
    if (reader.isNumber(end) && reader.isWord(end + 1) && reader.isGlued(end + 1))
        end += 2;
    if (!isSentence && reader.endsPart(end))
        block.end = end;
    return block;
}

bool endsWithOneOf(QStringView word, QStringView ends) {
    return word.size() > 1 && ends.contains(word.back());
}

AddressPart koreanAt(const AddressReader& reader, qsizetype number, qsizetype floor) {
    constexpr int mostWords = 5;
    const auto written = [&reader](qsizetype at) {
        return reader.isWord(at) ? reader.tokens().written(at) : QStringView();
    };
    qsizetype first = number - 1;
    if (written(first) == u"번길" && reader.isNumber(first - 1))
        first -= 2;
    if (!endsWithOneOf(written(first), u"로길동"))
        return {};
    int towns = 0;
    for (int count = 0; count < mostWords && first > floor; ++count) {
        if (!endsWithOneOf(written(first - 1), u"시도구군읍면동") || reader.startsLine(first))
            break;
        --first;
        ++towns;
    }
    const qsizetype end = reader.houseNumberEnd(number);
    if (towns == 0 || end == number)
        return {};
    if (reader.isWord(first - 1) && first > floor && written(first - 1) == u"서울")
        --first;
    return {postcodeBefore(reader, first, floor), end, addressWords::enoughEvidence};
}

} // namespace

AddressPart easternAddressAt(const AddressReader& reader, qsizetype number, qsizetype floor) {
    const Tokens& tokens = reader.tokens();
    if (!reader.isWord(number - 1) || number - 1 < floor || !reader.continuesLine(number) ||
        !isEastern(tokens.text().at(tokens.at(number - 1).start)))
        return {};
    if (isKorean(tokens.text().at(tokens.at(number - 1).start)))
        return koreanAt(reader, number, floor);
    constexpr qsizetype mostWords = 4;
    constexpr qsizetype mostUnits = 80;
    qsizetype first = number - 1;
    while (first > floor && number - first < mostWords && reader.isWord(first - 1) &&
           reader.continuesLine(first))
        --first;
    const qsizetype textEnd = tokens.at(number - 1).end();
    const qsizetype textStart = std::max<qsizetype>(tokens.at(first).start, textEnd - mostUnits);
    const Area area = areaOf(tokens.text().mid(textStart, textEnd - textStart));
    if (area.weight == 0)
        return {};
    AddressPart address = withBuilding(reader, blockAt(reader, number));
    address.weight += area.weight;
    if (address.isEmpty() || address.weight < addressWords::enoughEvidence ||
        address.weight < area.weight + blockWeight)
        return {};
    while (first + 1 < number && tokens.at(first).end() <= textStart + area.start)
        ++first;
    address.first = first;
    address.unusedHead = std::max<qsizetype>(0, textStart + area.start - tokens.at(first).start);
    if (address.unusedHead == 0)
        address.first = postcodeBefore(reader, first, floor);
    return address;
}

} // namespace quorvel
