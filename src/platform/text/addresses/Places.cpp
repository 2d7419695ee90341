#include "platform/text/addresses/Places.h"

#include "platform/text/addresses/WordSet.h"

namespace quorvel::places {

namespace {

constexpr char16_t countries[] =
    u"usa|us|u s a|united states|united states of america|canada|united kingdom|uk|great britain|"
    u"england|scotland|wales|northern ireland|ireland|australia|new zealand|germany|deutschland|"
    u"austria|osterreich|switzerland|schweiz|suisse|svizzera|france|belgium|belgique|belgie|spain|"
    u"espana|mexico|argentina|chile|colombia|peru|uruguay|venezuela|ecuador|bolivia|paraguay|"
    u"costa rica|panama|cuba|guatemala|honduras|nicaragua|el salvador|puerto rico|"
    u"republica dominicana|italy|italia|japan|nihon|россия|рф|russia|russian federation|украина|"
    u"украіна|ukraine|беларусь|belarus|казахстан|kazakhstan|netherlands|the netherlands|nederland|"
    u"holland|brazil|brasil|portugal|poland|polska|sweden|sverige|norway|norge|denmark|danmark|"
    u"finland|suomi|iceland|czech republic|czechia|ceska republika|slovakia|slovensko|hungary|"
    u"magyarorszag|romania|bulgaria|българия|greece|ελλαδα|turkey|turkiye|israel|ישראל|egypt|مصر|"
    u"saudi arabia|united arab emirates|uae|india|pakistan|bangladesh|sri lanka|nepal|china|"
    u"taiwan|hong kong|south korea|korea|republic of korea|singapore|malaysia|indonesia|thailand|"
    u"vietnam|viet nam|philippines|south africa|nigeria|kenya|ghana|morocco|maroc|algerie|tunisie|"
    u"luxembourg|luxemburg|liechtenstein|monaco|croatia|hrvatska|serbia|srbija|slovenia|slovenija|"
    u"estonia|eesti|latvia|latvija|lithuania|lietuva|malta|cyprus|senegal|cote d'ivoire|cameroun|"
    u"frankreich|italien|spanien|allemagne|italie|espagne|alemania|francia|germania|spagna|"
    u"германия|франция|polen|osterreich|日本|angola|mocambique|qatar|kuwait|lebanon|jordan";

constexpr char16_t cities[] =
    u"new york|los angeles|chicago|houston|phoenix|philadelphia|san antonio|san diego|dallas|"
    u"san jose|austin|jacksonville|san francisco|columbus|indianapolis|seattle|denver|washington|"
    u"washington dc|boston|nashville|detroit|portland|las vegas|memphis|baltimore|milwaukee|"
    u"albuquerque|atlanta|miami|oakland|minneapolis|tampa|new orleans|cleveland|honolulu|orlando|"
    u"pittsburgh|cincinnati|st louis|brooklyn|queens|bronx|manhattan|toronto|montreal|"
    u"vancouver|calgary|ottawa|edmonton|winnipeg|quebec|halifax|london|birmingham|manchester|"
    u"liverpool|leeds|glasgow|edinburgh|bristol|cardiff|belfast|sheffield|newcastle|nottingham|"
    u"leicester|oxford|cambridge|brighton|york|dublin|cork|galway|limerick|sydney|melbourne|"
    u"brisbane|perth|adelaide|canberra|hobart|auckland|wellington|christchurch|berlin|hamburg|"
    u"munchen|munich|koln|cologne|frankfurt|stuttgart|dusseldorf|leipzig|dortmund|essen|bremen|"
    u"dresden|hannover|nurnberg|duisburg|bochum|bonn|mannheim|karlsruhe|wiesbaden|munster|augsburg|"
    u"wien|vienna|graz|linz|salzburg|innsbruck|zurich|geneve|geneva|basel|bern|lausanne|luzern|"
    u"paris|marseille|lyon|toulouse|nice|nantes|montpellier|strasbourg|bordeaux|lille|rennes|reims|"
    u"grenoble|dijon|bruxelles|brussels|brussel|antwerpen|anvers|gent|liege|brugge|madrid|"
    u"barcelona|valencia|sevilla|zaragoza|malaga|bilbao|murcia|granada|alicante|"
    u"ciudad de mexico|mexico city|guadalajara|monterrey|puebla|buenos aires|cordoba|rosario|"
    u"bogota|medellin|cali|barranquilla|lima|santiago|valparaiso|caracas|quito|montevideo|"
    u"asuncion|la paz|la habana|roma|rome|milano|milan|napoli|torino|palermo|genova|bologna|"
    u"firenze|florence|venezia|verona|bari|catania|padova|trieste|tokyo|osaka|kyoto|yokohama|"
    u"nagoya|sapporo|fukuoka|kobe|москва|moscow|санкт-петербург|санкт петербург|спб|"
    u"saint petersburg|новосибирск|екатеринбург|казань|нижнии новгород|самара|омск|челябинск|"
    u"ростов-на-дону|уфа|красноярск|пермь|воронеж|волгоград|краснодар|саратов|тюмень|киів|киев|"
    u"kyiv|харків|харьков|одеса|одесса|львів|минск|алматы|астана|amsterdam|rotterdam|den haag|"
    u"utrecht|eindhoven|groningen|sao paulo|rio de janeiro|brasilia|salvador|fortaleza|"
    u"belo horizonte|curitiba|recife|porto alegre|manaus|campinas|lisboa|lisbon|porto|coimbra|"
    u"warszawa|warsaw|krakow|łodz|wrocław|poznan|gdansk|szczecin|lublin|katowice|stockholm|"
    u"goteborg|malmo|uppsala|oslo|bergen|trondheim|kobenhavn|københavn|copenhagen|aarhus|helsinki|"
    u"espoo|tampere|turku|reykjavik|praha|prague|brno|ostrava|bratislava|budapest|bucuresti|"
    u"bucharest|cluj-napoca|sofia|софия|athens|αθηνα|θεσσαλονικη|istanbul|ankara|izmir|kadikoy|"
    u"beograd|zagreb|ljubljana|tallinn|riga|vilnius|tel aviv|jerusalem|תל אביב|ירושלים|cairo|"
    u"القاهرة|dubai|abu dhabi|riyadh|الرياض|mumbai|delhi|new delhi|bangalore|bengaluru|chennai|"
    u"kolkata|hyderabad|pune|ahmedabad|jaipur|karachi|lahore|islamabad|dhaka|colombo|kathmandu|"
    u"beijing|shanghai|shenzhen|guangzhou|taipei|hong kong|seoul|busan|singapore|kuala lumpur|"
    u"jakarta|bandung|surabaya|bangkok|hanoi|ha noi|ho chi minh|ho chi minh city|manila|makati|"
    u"quezon city|johannesburg|cape town|durban|pretoria|lagos|abuja|nairobi|accra|casablanca|"
    u"rabat|tunis|alger|dakar|abidjan|luxembourg|monaco|springfield|beverly hills|hollywood";

constexpr char16_t regions[] =
    u"alabama|alaska|arizona|arkansas|california|colorado|connecticut|delaware|florida|georgia|"
    u"hawaii|idaho|illinois|indiana|iowa|kansas|kentucky|louisiana|maine|maryland|massachusetts|"
    u"michigan|minnesota|mississippi|missouri|montana|nebraska|nevada|new hampshire|new jersey|"
    u"new mexico|north carolina|north dakota|ohio|oklahoma|oregon|pennsylvania|rhode island|"
    u"south carolina|south dakota|tennessee|texas|utah|vermont|virginia|west virginia|wisconsin|"
    u"wyoming|district of columbia|ontario|british columbia|alberta|manitoba|saskatchewan|"
    u"nova scotia|new brunswick|newfoundland|newfoundland and labrador|prince edward island|yukon|"
    u"nunavut|northwest territories|new south wales|victoria|queensland|western australia|"
    u"south australia|tasmania|kent|surrey|essex|middlesex|hertfordshire|berkshire|hampshire|"
    u"oxfordshire|yorkshire|lancashire|cheshire|devon|cornwall|somerset|dorset|norfolk|suffolk|"
    u"cambridgeshire|derbyshire|leicestershire|nottinghamshire|buckinghamshire|maharashtra|"
    u"karnataka|tamil nadu|kerala|gujarat|telangana|uttar pradesh|west bengal|haryana|punjab|"
    u"rajasthan|cdmx|jalisco|nuevo leon|gauteng|western cape|selangor|bayern|hessen|sachsen|"
    u"andalucia|cataluna|catalunya|lombardia|lazio|toscana|veneto|sicilia";

constexpr char16_t regionCodes[] =
    u"al ak az ar ca co ct de fl ga hi id il in ia ks ky la me md ma mi mn ms mo mt ne nv nh nj nm "
    u"ny nc nd oh ok or pa ri sc sd tn tx ut vt va wa wv wi wy dc pr gu vi as mp ap ae on qc bc ab "
    u"mb sk ns nb nl pe yt nt nu nsw vic qld sa tas act";

constexpr char16_t placeWords[] =
    u"г гор город м місто обл область краи раион р-н рн пос поселок с село дер деревня респ "
    u"республика пгт col colonia barrio bo urb urbanizacion localidad municipio bairro "
    u"lieu-dit ort ot mah semt ilce quan q phuong p tp thanh kec kel kab kota";

constexpr char16_t districtEnds[] = u"ku shi cho machi ken fu gun mura son chome to dong gu si do "
                                    u"ro gil daero dori";

} // namespace

bool isCountry(QStringView name) {
    return WordSet<countries, u'|'>::contains(name);
}

bool isCity(QStringView name) {
    return WordSet<cities, u'|'>::contains(name);
}

bool isRegion(QStringView name) {
    return WordSet<regions, u'|'>::contains(name);
}

bool isRegionCode(QStringView word) {
    return WordSet<regionCodes>::contains(word);
}

bool isPlaceWord(QStringView word) {
    return WordSet<placeWords>::contains(word);
}

bool isDistrictEnd(QStringView word) {
    return WordSet<districtEnds>::contains(word);
}

} // namespace quorvel::places
