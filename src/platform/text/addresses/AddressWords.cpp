#include "platform/text/addresses/AddressWords.h"

#include "platform/text/addresses/WordSet.h"

namespace quorvel::addressWords {

namespace {

constexpr char16_t sureSuffixes[] =
    u"street st avenue ave av road rd boulevard blvd lane ln strt aven boul";
constexpr char16_t goodSuffixes[] =
    u"drive dr drv crescent cres cresc terrace terr parkway pkwy highway hwy turnpike tpke "
    u"expressway expy mews freeway causeway route rte fm court ct way place pl square sq close "
    u"circle cir trail trl grove alley "
    u"aly plaza plz gardens gdns quay wharf parade pde marg salai nagar esplanade";
constexpr char16_t weakSuffixes[] =
    u"park hill row walk run pass loop path point pt gate garden view green bridge station center "
    u"centre yard rise vale mall crossing xing ridge hollow bend broadway cove creek island lake "
    u"meadow meadows mill mount mountain orchard square terrace village heights hts hills ter "
    u"chase croft drove embankment fields mead side track colony circus common lawn promenade link "
    u"estate estates house cottages cottage buildings building lodge strand boardwalk bypass "
    u"concourse corner cross dale field glen rest spur wynd layout enclave sector";

/// Ends of words. The stem before them has at least three letters.
constexpr std::u16string_view sureEnds[] = {
    u"strasse",  u"strase", u"gasse",   u"allee",     u"gatan", u"vagen", u"straat", u"laan",
    u"gracht",   u"plein",  u"veien",   u"vegen",     u"gade",  u"katu",  u"kade",   u"singel",
    u"chaussee", u"stræde", u"strædet", u"plantsoen", u"kuja",  u"dijk",  u"gaten",  u"gata",
    u"granden",  u"torget", u"str",     u"vejen",     u"veg",
};
constexpr std::u16string_view goodEnds[] = {
    u"weg",   u"platz",  u"damm",   u"ufer",      u"steig", u"stieg",  u"vej",
    u"pfad",  u"twiete", u"stigen", u"promenade", u"steeg", u"vænget", u"vei",
    u"polku", u"backen", u"zeile",  u"graben",    u"deich",
};
constexpr std::u16string_view weakEnds[] = {
    u"ring",  u"hof",  u"berg", u"feld",   u"tor",    u"park",   u"markt", u"wall",  u"winkel",
    u"kamp",  u"tie",  u"alle", u"rain",   u"bruck",  u"brucke", u"kai",   u"horst", u"hohe",
    u"stein", u"tal",  u"bach", u"wiese",  u"garten", u"acker",  u"grund", u"plan",  u"plads",
    u"hang",  u"land", u"gard", u"garden", u"redder", u"insel",  u"leite", u"torv",  u"torg",
};

/// Words that end like a street and are none.
constexpr char16_t notGlued[] =
    u"arbeitsplatz parkplatz sitzplatz stehplatz stellplatz fensterplatz startplatz tabellenplatz "
    u"spielplatz sportplatz listenplatz campingplatz umweg ausweg heimweg ruckweg hinweg radweg "
    u"fahrradweg wanderweg fussweg feldweg schulweg bundesstrasse kreisstrasse landesstrasse "
    u"landstrasse staatsstrasse sackgasse autobahn schnellstrasse einbahnstrasse studienplatz "
    u"ausbildungsplatz liegeplatz kitaplatz standplatz podestplatz speicherplatz lagerplatz "
    u"fluchtweg rechtsweg seeweg bahnsteig ausstieg einstieg aufstieg abstieg anstieg umstieg "
    u"gangplatz golfplatz tennisplatz fussballplatz flugplatz marktplatzangebot halde hauptgade "
    u"brigade renegade wasserstrasse milchstrasse dienstweg postweg lieferweg transportweg "
    u"schlafplatz zeltplatz wohnmobilstellplatz rastplatz strassenplatz mittelplatz schlossgrade";

constexpr char16_t sureTrailing[] =
    u"strasse str gate utca utcaja ulice namesti trida gade gatan gata straat prospekt проспект "
    u"улица "
    u"переулок бульвар шоссе набережная вулиця провулок проезд площадь ulica sokak sok sokagi cad "
    u"caddesi cd bulvari blv allee laan korut";
constexpr char16_t goodTrailing[] =
    u"platz weg ring gasse damm ufer ter ut utja prospektas gatve iela trg наб пер бул ш "
    u"пр просп ул пл plein vej vei gracht chaussee площа тракт mah mahallesi";

/// English streets have their number before them; elsewhere the same words may have it behind.
constexpr char16_t weakTrailing[] = u"street road avenue lane boulevard";

constexpr char16_t surePrefixes[] =
    u"rue avenue boulevard bd blvd calle c avenida avda viale piazza piazzale rua alameda ул улица "
    u"вул вулиця проспект просп пер переулок бульвар шоссе набережная наб проезд провулок ulica ul "
    u"carrer avinguda passeig jalan jl praca travessa شارع רחוב שדרות carrera cra lungotevere "
    u"lungarno bulevardul calea aleja улице οδοσ λεωφοροσ đuong duong bulevar vicolo "
    u"jiron calzada prospekt ulitsa krasnaya pereulok";
constexpr char16_t goodPrefixes[] =
    u"via corso place allee chemin impasse quai route av paseo plaza camino carretera ctra ronda "
    u"travesia glorieta callejon pasaje diagonal rambla largo strada str al pl r cl kr "
    u"faubourg square passage ruelle sentier esplanade chaussee bld blv pza pje avd estrada "
    u"rodovia "
    u"rod pr пр пл площадь ш tv trav beco ladeira calcada borgo salita vico "
    u"rte cours fbg parvis promenade clos montee traverse venelle quartier lorong psje "
    u"soi thanon proj galleria contrada via quadra autopista os б туп тупик "
    u"residence lotissement cite voie circonvallazione villa mkr мкр";

/// Of these a prefix is made by the dot or stroke behind them alone.
constexpr char16_t dottedPrefixes[] = u"c r al pl cl kr pr os tv ш";

/// "Straße des 17. Juni", "Platz der Republik".
constexpr char16_t genitivePrefixes[] = u"strasse platz allee brucke";

constexpr char16_t numberBefore[] =
    u"rue avenue av boulevard bd bld blvd place pl allee chemin impasse quai route rte cours "
    u"square passage faubourg fbg ruelle sentier esplanade chaussee parvis promenade clos montee "
    u"traverse venelle voie residence villa cite calle camino via paseo avenida jalan شارع đuong "
    u"duong lotissement quartier carrer rua lorong plaza";

constexpr char16_t prepositions[] = u"am an im in auf unter zum zur beim hinter vor bei aan op";
constexpr char16_t adjectives[] =
    u"alte alter altes neue neuer grosse grosser kleine kleiner obere oberer untere unterer lange "
    u"langer kurze hohe hoher breite innere aussere vordere hintere sankt stora lilla gamla nya "
    u"norra sodra ostra vastra oude nieuwe grote korte eerste tweede derde gamle store lille st "
    u"berliner linke rechte wiener oranienburger 1e 2e vestre ostre";

constexpr char16_t connectors[] =
    u"de la le les du des del dels della dello delle degli dei di da das do dos d l y e i et el "
    u"los las of the and den der dem van von ten ter te sur sous aux au al en im am an zur vom "
    u"saint st ste sainte san santa do lo is na nad pod upon und bei v o imeni имени им på s";

constexpr char16_t numberWords[] = u"no nr n num numero д дом буд будинок house haus "
                                   u"hausnummer hsnr nro nº cp broj br владение вл";
constexpr char16_t numberTails[] = u"bis ter quater";

constexpr char16_t units[] =
    u"plot door bus bte boite apt apartment suite ste unit flat floor fl room rm bldg building "
    u"bsmt dept lot "
    u"level lvl "
    u"shop office appt appartement etage esc escalier bat batiment porte piso planta puerta pta "
    u"escalera dpto depto departamento dto int interior oficina of local scala sc interno apto "
    u"apartamento sala bloco bloque edificio edif torre casa кв квартира корп корпус стр строение "
    u"под подъезд эт этаж оф офис пом помещение комн к литера лит lok lokal m mieszkanie top "
    u"stiege tur wohnung whg daire kat floors tower block blok wing bureau app hus lgh "
    u"andar conj conjunto cj sobreloja manzana mz lote кабинет каб";
constexpr char16_t unitsAfter[] = u"floor fl og stock etage piso этаж andar planta eg";
constexpr char16_t sides[] =
    u"izq izda izquierda dcha der derecha ctro centro esq dto links rechts tv th mf";
constexpr char16_t directions[] = u"n s e w ne nw se sw north south east west northeast northwest "
                                  u"southeast southwest nth sth";

constexpr char16_t quantities[] =
    u"km m cm mm min mins minuten minute minutes minutos minuti uhr h std stunden hours hour euro "
    u"euros eur usd dollar dollars gb mb tb kb kg g mal fois times veces volte jahre jahr years "
    u"year ans anos anni tage days day jours dias giorni personen people personnes personas "
    u"persone stuck menschen einwohner kilometer meter metres meters metros metri mile miles "
    u"punkte points puntos punti prozent percent besucher zuschauer leute teilnehmer pm am million "
    u"millionen millions тысяч рублеи руб км минут лет года год человек мин zl kr kc ft users "
    u"items files bytes lines seconds sekunden secondes segundos secondi seiten pages mitarbeiter "
    u"january february march april may june july august september october november december januar "
    u"februar marz mai juni juli oktober dezember janvier fevrier mars avril juin juillet aout "
    u"septembre octobre novembre decembre enero febrero marzo abril mayo junio julio agosto "
    u"septiembre octubre noviembre diciembre gennaio febbraio aprile maggio giugno luglio "
    u"settembre "
    u"ottobre novembre dicembre января февраля марта апреля мая июня июля августа сентября октября "
    u"ноября декабря monate months mois meses mesi wochen weeks semaines horas heures часов час";
constexpr char16_t countedWords[] =
    u"hour hours star stars way day days week weeks month months year years minute minutes mile "
    u"miles meter metre meters metres bedroom bed room rooms lane lanes gb tb mb door doors piece "
    u"pack new more other people million billion point points step steps level man men player "
    u"players foot feet inch inches block blocks reasons things best top great big small different "
    u"january february march april may june july august september october november december jan "
    u"feb mar apr jun jul aug sep sept oct nov dec am pm percent degree degrees speed wheel core "
    u"times tips ways world super tier phase season round amp volt watt bit byte kg lb usd usb ssd "
    u"hdd mbit gbit tbit mbps gbps ghz mhz hz kw eleven internal external hard flash disk test "
    u"drive street court "
    u"road avenue";
constexpr char16_t days[] =
    u"montag dienstag mittwoch donnerstag freitag samstag sonntag monday tuesday wednesday "
    u"thursday "
    u"friday saturday sunday januar februar marz april mai juni juli august september oktober "
    u"november dezember january february march june july october december lundi mardi mercredi "
    u"jeudi vendredi samedi dimanche lunes martes miercoles jueves viernes sabado domingo jahr "
    u"jahre ende anfang mitte alter durchschnitt schnitt laufe monat woche tag abend morgen";
constexpr char16_t leads[] =
    u"at to on from near visit address located lives live is in ship send mail deliver am an in zu "
    u"nach bei au a chez dans en calle direccion adresse anschrift wohnt wohne via по адрес на "
    u"address: indirizzo presso morada domicilio residence office hq headquarters resides residing "
    u"home outside and between or by dirigida sede onto over";
constexpr char16_t yearLeads[] =
    u"in since of during from by until after before the early late mid "
    u"circa im seit en depuis desde nel dal year summer winter spring";
constexpr char16_t numbered[] =
    u"version chapter kapitel seite page tisch table room zimmer raum gate gleis linie line bus "
    u"tram level stufe step schritt punkt point teil part band volume issue ausgabe nummer number "
    u"episode season staffel folge platz weg place figure abbildung tabelle windows android iphone "
    u"galaxy python java ubuntu debian node php mac macbook ios samsung pixel playstation xbox "
    u"nintendo chrome firefox rechnung invoice order bestellung auftrag ticket case fall "
    u"article artikel section abschnitt paragraph phase group gruppe team class klasse day tag "
    u"week woche year jahr month monat round runde top test task aufgabe question frage option "
    u"build release rev revision patch slide item row column player seat sitz flight flug zug "
    u"train "
    u"highway route autobahn terminal track model modell error fehler code port channel kanal "
    u"serie type typ size grosse groesse score total summe price preis um ab bis von "
    u"articulo capitulo chapitre capitolo pagina glava глава том часть урок версия стр страница";

constexpr char16_t spelledNumbers[] = u"one two three four five six seven eight nine ten";
constexpr char16_t highways[] = u"highway hwy route rte road rd fm";
constexpr char16_t contactWords[] =
    u"tel telefon telephone telefono telefone phone ph fax mobile mob mobil cell email e mail web "
    u"www "
    u"http https attn contact contacto kontakt vat ust iban bic тел телефон факс инн огрн office";

template <typename Ends>
bool endsLike(QStringView word, const Ends& ends) {
    constexpr qsizetype shortestStem = 3;
    return std::ranges::any_of(ends, [word](std::u16string_view end) {
        return word.size() >= qsizetype(end.size()) + shortestStem &&
               word.endsWith(QStringView(end));
    });
}

} // namespace

int suffixWeight(QStringView word) {
    return WordSet<sureSuffixes>::contains(word)   ? 28
           : WordSet<goodSuffixes>::contains(word) ? 25
           : WordSet<weakSuffixes>::contains(word) ? 10
                                                   : 0;
}

int gluedWeight(QStringView word) {
    constexpr qsizetype shortest = 6;
    if (word.size() < shortest || WordSet<notGlued>::contains(word))
        return 0;
    return endsLike(word, sureEnds)   ? 30
           : endsLike(word, goodEnds) ? 25
           : endsLike(word, weakEnds) ? 10
                                      : 0;
}

int trailingWeight(QStringView word) {
    if (WordSet<weakTrailing>::contains(word))
        return 10;
    return WordSet<sureTrailing>::contains(word)   ? 30
           : WordSet<goodTrailing>::contains(word) ? 20
                                                   : 0;
}

int prefixWeight(QStringView word) {
    return WordSet<surePrefixes>::contains(word)   ? 30
           : WordSet<goodPrefixes>::contains(word) ? 25
                                                   : 0;
}

bool needsDot(QStringView word) {
    return WordSet<dottedPrefixes>::contains(word);
}

bool takesGenitive(QStringView word) {
    return WordSet<genitivePrefixes>::contains(word);
}

bool takesNumberBefore(QStringView word) {
    return WordSet<numberBefore>::contains(word);
}

bool isPlacePreposition(QStringView word) {
    return WordSet<prepositions>::contains(word);
}

bool isStreetAdjective(QStringView word) {
    return WordSet<adjectives>::contains(word);
}

bool isConnector(QStringView word) {
    return WordSet<connectors>::contains(word);
}

bool isNumberWord(QStringView word) {
    return WordSet<numberWords>::contains(word);
}

bool isNumberTail(QStringView word) {
    return WordSet<numberTails>::contains(word);
}

bool isUnit(QStringView word) {
    return WordSet<units>::contains(word);
}

bool isUnitAfter(QStringView word) {
    return WordSet<unitsAfter>::contains(word);
}

bool isSide(QStringView word) {
    return WordSet<sides>::contains(word);
}

bool isDirection(QStringView word) {
    return WordSet<directions>::contains(word);
}

bool isQuantity(QStringView word) {
    return WordSet<quantities>::contains(word);
}

bool isCounted(QStringView word) {
    return WordSet<countedWords>::contains(word);
}

bool isDay(QStringView word) {
    return WordSet<days>::contains(word);
}

bool leadsIn(QStringView word) {
    return WordSet<leads>::contains(word);
}

bool leadsYear(QStringView word) {
    return WordSet<yearLeads>::contains(word);
}

bool isSpelledNumber(QStringView word) {
    return WordSet<spelledNumbers>::contains(word);
}

bool isHighway(QStringView word) {
    return WordSet<highways>::contains(word);
}

bool isContact(QStringView word) {
    return WordSet<contactWords>::contains(word);
}

bool isNumbered(QStringView word) {
    return WordSet<numbered>::contains(word);
}

} // namespace quorvel::addressWords
