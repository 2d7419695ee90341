#include "platform/text/names/NoNameWords.h"

#include <QStringTokenizer>

#include <algorithm>
#include <array>
#include <vector>

namespace quorvel {

namespace {

/// Words with blanks between them.
constexpr std::array lists{
    // function words
    QStringView(
        u" and or of the for in on at to with from by your our my is are be this that not no"
        u" und oder der die das den dem ein eine mit von fur im am zum zur auf bei aus nach"
        u" unser ihre y o el las los un una para por con en su nuestra et ou les des une pour"
        u" dans sur avec du au aux notre votre il gli per nel och och og en het voor met"
        u" и в на с по для из от до не как как the an as so if how what when where why who "),
    // what organisations are called
    QStringView(
        u" inc ltd llc corp co gmbh ag kg sa sarl spa bv plc company companies group holding"
        u" holdings bank university universitat universidad universite college school"
        u" institute academy hospital clinic church museum library theatre theater opera"
        u" foundation association society club team union council ministry department"
        u" agency office court committee party press times post journal news radio tv"
        u" records pictures studio studios entertainment motors airlines airways insurance"
        u" capital partners consulting services solutions systems software technologies"
        u" technology labs industries international global media network networks energy"
        u" foods brothers united fc athletic rovers wanderers hotel restaurant cafe bar"
        u" общество компания банк университет институт министерство театр музей завод"
        u" verein stiftung gesellschaft versicherung ministerium schule klinik kirche"
        u" ayuntamiento ministerio banco escuela teatro iglesia societe banque ecole"
        u" mairie ministere eglise musee τραπεζα πανεπιστημιο "),
    // places
    QStringView(u" street avenue road lane drive boulevard square park bridge station airport"
                u" harbour harbor beach bay island islands lake river mountain mount hills valley"
                u" falls forest gardens garden city town village county state states district"
                u" north south east west northern southern eastern western upper lower new old"
                u" saint san santa santo sankt st los las la costa puerto rio monte mont grand"
                u" great royal kingdom republic federation emirates coast cape fort port castle"
                u" palace tower center centre plaza piazza platz strasse rue place playa isla"
                u" kreuz dom burg bad land улица площадь проспект город область край республика"
                u" красная великий нижний новый старый санкт νεα αγια αγιος νησι "),
    // jobs and headings
    QStringView(u" manager director engineer developer designer analyst consultant assistant"
                u" officer chief executive president secretary minister professor doctor teacher"
                u" lead leader head senior junior vice general sales marketing finance product"
                u" project program human resources customer support service quality account"
                u" accounts data machine learning report reports review meeting agenda summary"
                u" overview introduction conclusion chapter section table figure appendix notes"
                u" terms conditions policy privacy contact about home page settings options"
                u" file edit view open save close help search sign log user guide manual version"
                u" release update download install order payment invoice shipping delivery"
                u" address phone email date time total price budget plan planning strategy"
                u" business development research design test testing training workshop team"
                u" quarterly annual monthly weekly daily next last first second third final"
                u" leiter leiterin geschaftsfuhrer abteilung bericht rechnung angebot"
                u" director directora jefe gerente directeur directrice chef rapport facture"
                u" директор менеджер инженер отдел отчет договор счет главный генеральный "),
    // products, software, examples, war and stars
    QStringView(u" google apple microsoft amazon facebook samsung sony intel nvidia oracle adobe"
                u" android iphone ipad macbook windows linux ubuntu firefox chrome safari office"
                u" excel word outlook teams galaxy pixel pro max plus mini air ultra lite studio"
                u" code visual cloud web server client api app apps online digital smart super"
                u" hello world lorem ipsum foo bar baz dolor sit amet star wars game games music"
                u" video photo photos maps play store pay drive docs sheets slides calendar"
                u" book books series season episode movie film album song dance theory effect"
                u" syndrome disease law theorem principle award prize cup league championship"
                u" festival conference summit forum day week month year morning evening night"
                u" birthday christmas easter happy merry good welcome thank thanks dear best kind"
                u" regards sincerely hi hey yes please sorry congratulations "),
    // foods, sciences and what else is named after people
    QStringView(u" salad rice soup sauce cake pie pizza pasta tea coffee wine beer cheese bread"
                u" chicken beef tikka masala curry equilibrium equation number numbers constant"
                u" function scale transform distribution paradox conjecture razor box set controls"
                u" motorcycles maschinenbau rex saurus smile portrait concerto sonata symphony"
                u" quartet requiem bridge gate wall door window house home calle rue via avenida"
                u" carrer paseo plaza unter guardar como anos bom dia joyeux noel feliz buon buona"
                u" guten gute bonne bon nuit matin tag nacht abend morgen navidad natale pasqua"
                u" доброе утро добрыи день новыи год спасибо с днем рождения καλημερα καλη cola"
                u" pepsi reuters sachs benz bmw audi toyota nike adidas gucci prada chanel "),
    // words of other languages in names of dishes, books, shops, clubs and kinds
    QStringView(u" dolce petit petite grande leche gallo dias noches tardes leben vino gelato"
                u" kaffee bier brot wurst kuchen suppe allee strase ufer brucke bahnhof flughafen"
                u" era dynasty empire tech lymphoma carcinoma onlain online такси доставка"
                u" онлаин магазин ресторан гостиница вокзал аэропорт станция канал проект"
                u" atletico deportivo sporting calcio dinamo lokomotiv prix tour trophy open"
                u" shepherd retriever terrier spaniel poodle hound simulation elimination"
                u" machine hypothesis lemma polynomial matrix algorithm protocol model manifold"
                u" particle boson compiler framework notebook browser keyboard printer camera "),
    QStringView(u" sauvage blanc noir rouge vert bleu negro verde rosso nero bianco vita amore"
                u" mundial mundo monde welt zeitung zeit mir journal diario corriere gazette"
                u" whiskey whisky vodka rum cocktail perfume parfum jeans shoes sneakers watch"
                u" outlet boutique salon barber bakery garage grill diner pub brewery winery"
                u" residence residences apartments suites resort spa villas mall arena stadium"
                u" stadion estadio stade dvorets vokzal prospekt ulica ulitsa calea strada corso"
                u" viale piazzale quai square passage impasse chemin gasse weg markt hof"
                u" jalan lorong soi thanon cadde sokak mahalle nagar marg chowk ghat kovil "),
    // wishes, folders and headings of other languages
    QStringView(u" mutlu yillar yil gunaydin geceler iyi aksamlar tesekkurler xin moi nuovo nuova"
                u" nowy nowa nowe novy novi dobry dobra dobre dobar dobro dobranoc laku noc sretan"
                u" srecan vesele wesolych szczesliwego bun buna noapte multi ani craciun boldog"
                u" karacsonyt napot estet hyvaa joulua paivaa god gott nytt jul glaedelig goede"
                u" nieuwe neue neuer neues boas bons festas nova novo pasta carpeta dossier"
                u" cartella ordner mappe dokument dokumenty document documento documents"
                u" selamat pagi siang malam tahun baru terima kasih salam alaikum honesta"
                u" честит честита година нова ново новая новии опера роман фильм песня добър"
                u" ден доброго ранку дякую срећна σπιτι νεο ετοσ χρονια πολλα "),
    // the calendar
    QStringView(u" monday tuesday wednesday thursday friday saturday sunday january february march"
                u" april june july august september october november december spring summer"
                u" autumn montag dienstag mittwoch donnerstag freitag samstag sonntag januar"
                u" februar marz mai juni juli oktober dezember lundi mardi mercredi jeudi vendredi"
                u" samedi dimanche janvier fevrier avril juin juillet aout lunes martes miercoles"
                u" jueves viernes sabado domingo enero febrero marzo abril mayo junio julio"
                u" agosto septiembre octubre noviembre diciembre понедельник вторник среда"
                u" четверг пятница суббота воскресенье "),
};

/// All words in order, so that a few comparisons find one; the views are small.
std::vector<QStringView> sortedWords() {
    std::vector<QStringView> all;
    for (const QStringView list : lists)
        for (const QStringView word : list.tokenize(u' ', Qt::SkipEmptyParts))
            all.push_back(word);
    std::sort(all.begin(), all.end());
    return all;
}

} // namespace

bool isNoNameWord(QStringView word) {
    static const std::vector<QStringView> all = sortedWords();
    return std::binary_search(all.begin(), all.end(), word);
}

} // namespace quorvel
