#pragma once

#include "platform/text/dates/DateWords.h"

namespace quorvel {

// Words are folded: without case and diacritics, as folded() leaves them.
// clang-format off

inline constexpr auto plain = Strength::plain;
inline constexpr auto ambiguous = Strength::ambiguous;
inline constexpr auto weak = Strength::weak;

inline constexpr WordRow dateWordRows[] = {
    {Role::month, 1, plain, u"january januar janner enero janvier janv gennaio janeiro januari styczen stycznia styczniu январь января январе янв leden ledna ocak ianuarie januarie січень січня tammikuuta ιανουαριου ιανουαριοσ يناير tammikuu январе"},
    {Role::month, 2, plain, u"february feb februar febrero fevrier fevr gennaro febbraio fevereiro fev februari luty lutego lutym февраль февраля феврале фев февр unora unor subat februarie лютии лютого helmikuuta helmikuu φεβρουαριου φεβρουαριοσ فبراير"},
    {Role::month, 3, plain, u"marz maerz marco marca maart marts marzec marcu марта марте brezna brezen березень березня maaliskuuta maaliskuu μαρτιου μαρτιοσ مارس marzo martie"},
    {Role::month, 4, plain, u"april apr abril avril aprile kwiecien kwietnia kwietniu апрель апреля апреле апр dubna nisan aprilie квітень квітня huhtikuuta huhtikuu απριλιου απριλιοσ ابريل"},
    {Role::month, 5, plain, u"mayo maggio maio mei maja мая kvetna kveten mayis травень травня toukokuuta toukokuu μαιου μαιοσ مايو"},
    {Role::month, 6, plain, u"june jun juni junio juin giugno junho czerwiec czerwca czerwcu июнь июня июне июн cervna cerven haziran iunie червень червня kesakuuta kesakuu ιουνιου ιουνιοσ يونيو"},
    {Role::month, 7, plain, u"july jul juli julio juillet juil luglio julho lipiec lipca lipcu июль июля июле июл cervence cervenec temmuz iulie липень липня heinakuuta heinakuu ιουλιου ιουλιοσ يوليو"},
    {Role::month, 8, plain, u"august aug agosto aout augustus augusti sierpien sierpnia sierpniu август августа августе авг srpna srpen agustos серпень серпня elokuuta elokuu αυγουστου αυγουστοσ اغسطس"},
    {Role::month, 9, plain, u"september sept septiembre setiembre septembre settembre setembro wrzesien wrzesnia wrzesniu сентябрь сентября сентябре сент сен zari eylul septembrie вересень вересня syyskuuta syyskuu σεπτεμβριου σεπτεμβριοσ سبتمبر"},
    {Role::month, 10, plain, u"october oct oktober okt octubre octobre ottobre outubro pazdziernik pazdziernika pazdzierniku октябрь октября октябре окт rijna rijen ekim octombrie жовтень жовтня lokakuuta lokakuu οκτωβριου οκτωβριοσ اكتوبر"},
    {Role::month, 11, plain, u"november nov noviembre novembre novembro listopad listopada listopadzie ноябрь ноября ноябре ноя нояб listopadu kasım kasim noiembrie marraskuuta marraskuu νοεμβριου νοεμβριοσ نوفمبر"},
    {Role::month, 12, plain, u"december dec dezember dez diciembre dic decembre dicembre dezembro grudzien grudnia grudniu декабрь декабря декабре дек prosince prosinec aralık aralik decembrie грудень грудня joulukuuta joulukuu δεκεμβριου δεκεμβριοσ ديسمبر"},
    {Role::month, 1, ambiguous, u"jan ene sty"},
    {Role::month, 3, ambiguous, u"march mar mars mrz март мар mart"},
    {Role::month, 4, ambiguous, u"avr abr"},
    {Role::month, 5, ambiguous, u"may mai maj маи"},
    {Role::month, 9, ambiguous, u"sep"},
    {Role::month, 8, weak, u"ago"},
    {Role::month, 9, weak, u"set"},
    {Role::month, 10, weak, u"out ott"},
    {Role::month, 5, weak, u"mag"},
    {Role::month, 1, weak, u"gen"},
    {Role::month, 6, weak, u"giu"},
    {Role::month, 7, weak, u"lug"},

    {Role::weekday, 1, plain, u"monday montag lundi lunes lunedi maandag poniedzialek poniedziałek poniedziałku понедельник понедельника понедельнику mandag mandag pondeli pazartesi понеділок maanantai maanantaina δευτερα 月曜日 月曜 星期一 周一 週一 礼拜一 월요일"},
    {Role::weekday, 2, plain, u"tuesday dienstag mardi martes martedi dinsdag wtorek wtorku вторник вторника tirsdag tisdag utery вівторок tiistai tiistaina 火曜日 火曜 星期二 周二 週二 礼拜二 화요일"},
    {Role::weekday, 3, plain, u"wednesday mittwoch mercredi miercoles mercoledi woensdag srode среду onsdag stredu carsamba середу keskiviikko keskiviikkona 水曜日 水曜 星期三 周三 週三 礼拜三 수요일"},
    {Role::weekday, 4, plain, u"thursday donnerstag jeudi jueves giovedi donderdag czwartek czwartku четверг четверга torsdag ctvrtek persembe четвер torstai torstaina 木曜日 木曜 星期四 周四 週四 礼拜四 목요일"},
    {Role::weekday, 5, plain, u"friday freitag vendredi viernes venerdi vrijdag piatek piatku пятница пятницу пятницы fredag patek п'ятниця п'ятницю perjantai perjantaina 金曜日 金曜 星期五 周五 週五 礼拜五 금요일"},
    {Role::weekday, 6, plain, u"saturday samstag sonnabend samedi sabado sabato zaterdag sobota sobote soboty суббота субботу субботы lørdag lordag sobotu cumartesi субота суботу lauantai lauantaina 土曜日 土曜 星期六 周六 週六 礼拜六 토요일"},
    {Role::weekday, 7, plain, u"sunday sonntag dimanche domingo domenica zondag niedziela niedziele воскресенье воскресенья søndag sondag nedele неділя неділю sunnuntai sunnuntaina 日曜日 日曜 星期日 星期天 周日 週日 礼拜天 일요일"},
    {Role::weekday, 1, ambiguous, u"mon lun lu mo ma pon пн seg segunda 月"},
    {Role::weekday, 2, ambiguous, u"tue tues mar di mar wt вт ter terca salı 火"},
    {Role::weekday, 3, ambiguous, u"wed weds mi mie mer wo sr ср среда среды qua quarta sroda 水"},
    {Role::weekday, 4, ambiguous, u"thu thur thurs do jue jeu gio czw чт qui quinta 木"},
    {Role::weekday, 5, ambiguous, u"fri fr vie ven vr pt пт sex sexta cuma 金"},
    {Role::weekday, 6, ambiguous, u"sat sa sab sam za sob сб 土"},
    {Role::weekday, 7, ambiguous, u"sun so dom dim zo niedz вс pazar 日"},
    {Role::weekday, 1, plain, u"montagmorgen montagvormittag montagmittag montagnachmittag montagabend montagnacht"},
    {Role::weekday, 2, plain, u"dienstagmorgen dienstagvormittag dienstagmittag dienstagnachmittag dienstagabend dienstagnacht"},
    {Role::weekday, 3, plain, u"mittwochmorgen mittwochvormittag mittwochmittag mittwochnachmittag mittwochabend mittwochnacht"},
    {Role::weekday, 4, plain, u"donnerstagmorgen donnerstagvormittag donnerstagmittag donnerstagnachmittag donnerstagabend donnerstagnacht"},
    {Role::weekday, 5, plain, u"freitagmorgen freitagvormittag freitagmittag freitagnachmittag freitagabend freitagnacht"},
    {Role::weekday, 6, plain, u"samstagmorgen samstagvormittag samstagmittag samstagnachmittag samstagabend samstagnacht"},
    {Role::weekday, 7, plain, u"sonntagmorgen sonntagvormittag sonntagmittag sonntagnachmittag sonntagabend sonntagnacht"},
    {Role::feira, 0, plain, u"feira"},

    {Role::dayName, 0, plain, u"today tonight tomorrow yesterday tmrw hoy ayer anteayer anoche heute gestern vorgestern ubermorgen uebermorgen aujourd'hui demain oggi domani ieri dopodomani stasera stamattina stanotte hoje amanha ontem anteontem vandaag gisteren overmorgen eergisteren vanavond vanmorgen vanmiddag vannacht dzisiaj dzis jutro wczoraj pojutrze przedwczoraj сегодня завтра вчера послезавтра позавчера idag imorgon igar ikvall сьогодні вчора bugun yarın yarin dnes zitra vcera σημερα αυριο χθεσ اليوم غدا امس huomenna tanaan eilen"},
    {Role::dayName, 0, plain, u"今日 明日 昨日 一昨日 明後日 本日 今朝 今夜 今晩 昨夜 昨晩 来週 先週 今週 来月 先月 今月 来年 去年 昨年 今年 再来週 再来月 再来年 翌日 週末 月末 年末 今月末 来月末 あした きょう きのう 今天 明天 昨天 后天 後天 前天 今晚 明晚 昨晚 今早 明早 下个月 上个月 下個月 上個月 这个月 這個月 本月 明年 月底 年底 周末 오늘 내일 어제 모레 그저께 내년 작년 올해 지난달 다음달 이번달"},
    {Role::dayName, 0, ambiguous, u"manana morgen hier"},
    {Role::eastWeek, 0, plain, u"下周 上周 这周 本周 下週 上週 這週 本週 下星期 上星期 这星期 下个星期 上个星期 下個星期 上個星期 下礼拜 上礼拜 지난주 다음주 이번주"},

    {Role::dayPart, 0, plain, u"morning manana matin fruh morgen vormittag mattina mattino manha ochtend rano утром утра morgens vormittags"},
    {Role::dayPart, 1, plain, u"afternoon evening night tarde noche noite nachmittag abend mittag nacht nachts abends nachmittags soir midi nuit pomeriggio sera notte middag avond wieczorem днем дня вечером вечера ночью lunchtime mediodia soiree"},
    {Role::dayPart, 0, plain, u"ночи matinee"},
    {Role::dayPart, 1, plain, u"の朝 の夜 の昼 の夕方 の午前中 の午後"},
    {Role::dayPartLead, 0, plain, u"por pela a de la in the du della della apres"},

    {Role::shortUnit, 1, plain, u"second seconds sec secs segundo segundos sekunde sekunden seconde secondes secondo secondi секунд секунды секунду сек seconden sekund 秒"},
    {Role::shortUnit, 2, plain, u"minute minutes min mins minuto minutos minuten minuta minuti minuut minut minuty минут минуты минуту мин 分 分钟 分鐘 분"},
    {Role::shortUnit, 3, plain, u"hour hours hr hrs hora horas stunde stunden heure heures ora ore uur uren godzin godziny godzine час часа часов 時間 小时 小時 시간"},
    {Role::shortUnit, 4, plain, u"day days dia dias tag tage tagen jour jours giorno giorni dag dagen dni dzien an lat lata лет день дня днеи 日 日間 天 일"},
    {Role::period, 5, plain, u"week weeks semana semanas woche wochen semaine semaines settimana settimane weken tydzien tygodni tygodnie tygodniu неделя неделю недели неделе недель 週間 周 週 주 fortnight uge vecka"},
    {Role::period, 6, plain, u"month months mes meses monat monats monate monaten mois mese mesi maand maanden miesiac miesiacu miesiace miesiecy месяц месяца месяцев месяце か月 ヶ月 カ月 ヵ月 个月 個月 개월 달 manad"},
    {Role::period, 7, plain, u"year years ano anos jahr jahre jahren jahres ans annee annees anno anni jaar jaren rok roku год года году 年 년"},
    {Role::period, 8, plain, u"weekend weekends wochenende finde выходные выходных quarter quartal trimestre trimestre"},

    {Role::which, 0, plain, u"next last this coming upcoming este esta proximo proxima pasado pasada nachste nachsten nachster nachstes nachstem naechste naechsten naechstes letzte letzten letzter letztes letztem diese dieser dieses diesen diesem kommende kommenden kommendes vergangene vergangenen vorige vorigen ubernachste ubernachsten ce cet cette prochain prochaine prossimo prossima scorso scorsa questo questa quest volgende vorige deze komende afgelopen dit nastepnym nastepny przyszłym przyszły przyszła zeszłym zeszły ubiegłym tym следующии следующая следующую следующеи следующем следующее прошлыи прошлая прошлую прошлои прошлом прошлое этот эта эту этои этом это ближаишии ближаишую"},
    {Role::which, 0, plain, u"다음 지난 이번"},
    {Role::whichAfter, 0, plain, u"next prochain prochaine dernier derniere passe passee proximo proxima pasado pasada passado passada entrante prossimo prossima scorso scorsa"},

    {Role::number, 1, plain, u"a an one eins un una une uno ein eine einem einer einen um uma een jeden один одну одна"},
    {Role::number, 2, plain, u"two dos zwei deux due dois duas twee dwa dwie два две 两 兩 couple"},
    {Role::number, 3, plain, u"three tres drei trois tre drie trzy три few unos unas par пару quelques einigen wenigen algunos несколько"},
    {Role::number, 4, plain, u"four cuatro vier quatre quattro quatro cztery четыре"},
    {Role::number, 5, plain, u"five cinco funf fuenf cinq cinque vijf piec пять"},
    {Role::number, 6, plain, u"six seis sechs sei zes szesc шесть"},
    {Role::number, 7, plain, u"seven siete sieben sept sette sete zeven siedem семь"},
    {Role::number, 8, plain, u"eight ocho acht huit otto oito osiem восемь"},
    {Role::number, 9, plain, u"nine nueve neun neuf nove negen dziewiec девять"},
    {Role::number, 10, plain, u"ten diez zehn dix dieci dez tien dziesiec десять"},
    {Role::number, 11, plain, u"eleven elf onze undici одиннадцать"},
    {Role::number, 12, plain, u"twelve doce zwolf douze dodici doze twaalf двенадцать"},
    {Role::number, 15, plain, u"fifteen quince quinze funfzehn quindici пятнадцать"},
    {Role::number, 20, plain, u"twenty veinte zwanzig vingt venti vinte двадцать"},
    {Role::number, 30, plain, u"thirty treinta dreissig trente trenta trinta тридцать"},

    {Role::ordinal, 1, plain, u"first primero ersten erste premier primo primeiro первое первого"},
    {Role::ordinal, 2, plain, u"second zweiten zweite второе второго"},
    {Role::ordinal, 3, plain, u"third dritten dritte третье третьего"},
    {Role::ordinal, 4, plain, u"fourth vierten четвертое четвертого"},
    {Role::ordinal, 5, plain, u"fifth funften пятое пятого"},
    {Role::ordinal, 6, plain, u"sixth sechsten шестое шестого"},
    {Role::ordinal, 7, plain, u"seventh siebten седьмое седьмого"},
    {Role::ordinal, 8, plain, u"eighth achten восьмое восьмого"},
    {Role::ordinal, 9, plain, u"ninth neunten девятое девятого"},
    {Role::ordinal, 10, plain, u"tenth zehnten десятое десятого"},
    {Role::ordinalSuffix, 0, plain, u"st nd rd th er ere e de ste º ª го е ого"},

    {Role::ago, 0, plain, u"ago atras fa geleden temu назад sitten тому 前 後 后 以内 以前 以后 以後 之前 之后 전 후 뒤"},
    {Role::agoLead, 0, plain, u"hace vor ha"},
    {Role::inLead, 0, plain, u"in en dans tra fra over za em через om"},
    {Role::through, 0, plain, u"через za"},

    {Role::at, 0, plain, u"at um a o alle as as las в om kl klo gegen vers ab около by @ around about from"},
    {Role::hourLead, 0, plain, u"ore kl klo alle um в"},
    {Role::of, 0, plain, u"of de del des di d do の 的 der du"},
    {Role::from, 0, plain, u"from von vom desde de del du с со dal dalle das van od"},
    {Role::to, 0, plain, u"to until till through thru bis hasta a al au a до по alle al ao as tot do から до"},
    {Role::on, 0, plain, u"on by until till before after since from for due dated date am vom bis zum ab den der seit el del al le du au depuis avant jusqu dal il em no op vanaf do od dia с до к от по дата datum fecha"},
    {Role::dottedOn, 0, plain, u"am vom bis zum ab den der dem seit с до к по от den dne do"},
    {Role::article, 0, plain, u"the le la l el den"},
    {Role::edge, 0, plain, u"end beginning start middle mid early late fin finales principios mediados inicios ende anfang mitte debut fine meta inizio final конец конце начало начале середине eind einde begin koniec koncu"},

    {Role::clock, 1, plain, u"uhr o'clock"},
    {Role::clock, 0, plain, u"h hs hrs heures heure uur час часа часов horas ч"},
    {Role::halfDay, 0, plain, u"am"},
    {Role::halfDay, 1, plain, u"pm"},
    {Role::zone, 0, plain, u"utc gmt"},
    {Role::zone, 1, plain, u"z cet cest mez mesz pst pdt est edt cst cdt mst mdt bst ist jst kst msk мск eet eest wet west aest aedt acst awst nzst nzdt hkt sgt brt art et pt ct mt hst akst akdt sast wib pht pkt"},
    {Role::noon, 12, plain, u"noon midday midi mediodia mezzogiorno полдень"},
    {Role::noon, 0, plain, u"midnight mitternacht minuit medianoche mezzanotte полночь"},
    {Role::hourPart, 30, plain, u"half"},
    {Role::hourPart, 15, plain, u"quarter viertel"},
    {Role::hourPart, -30, plain, u"halb"},
    {Role::past, 0, plain, u"past after nach"},
    {Role::before, 0, plain, u"to before vor"},
    {Role::yearMark, 0, plain, u"г года год году годов р року r"},

    {Role::notDate, 0, plain, u"version versions ver v release build rev revision firmware kernel python node java qt linux php ruby perl gcc clang android ios macos windows debian ubuntu chrome firefox postgresql mysql nginx openssl sdk api npm версия versao versione wersja"},
    {Role::notDate, 1, plain, u"genesis exodus leviticus numbers deuteronomy joshua judges ruth samuel kings chronicles ezra nehemiah esther job psalm psalms proverbs ecclesiastes isaiah jeremiah lamentations ezekiel daniel hosea joel amos obadiah jonah micah nahum habakkuk zephaniah haggai zechariah malachi matthew mark luke john acts romans corinthians galatians ephesians philippians colossians thessalonians timothy titus philemon hebrews james peter jude revelation verse chapter surah sura quran juan mateo marcos lucas johannes matthaus markus lukas romer korinther jean matthieu marc luc salmo salmos psaume psaumes salmi giovanni matteo luca vers kapitel versiculo"},
    {Role::notDate, 1, plain, u"ratio scale aspect score massstab verhaltnis proporcion escala echelle duration length elapsed dauer duree duracion runtime масштаб счет section figure fig table abschnitt kapitel page port ip isbn sku serial"},
    {Role::notDate, 2, plain, u"black cyber bloody casual fat"},
    {Role::french, 0, plain, u"je j tu il elle nous vous ils elles est les et des une pas que qui avec pour dans ai avons avez ont etait ete mon ma sur ce cette soir matin c'etait j'ai d'"},
    {Role::phraseStart, 0, plain, u"il l dentro que from the day pasado apres avant depois daqui"},
    {Role::phraseWord, 0, plain, u"y a de an dernier prochain passe viene vem now today tomorrow yesterday after before manana demain hier amanha"},

    {Role::era, 2018, plain, u"令和"},
    {Role::era, 1988, plain, u"平成"},
    {Role::era, 1925, plain, u"昭和"},
    {Role::era, 1911, plain, u"大正 民國 民国"},
    {Role::era, 1867, plain, u"明治"},
    {Role::eastFirst, 1, plain, u"元"},
    {Role::eastYear, 0, plain, u"年 년"},
    {Role::eastMonth, 0, plain, u"月 월"},
    {Role::eastDay, 0, plain, u"日 号 號 일"},
    {Role::eastHour, 0, plain, u"時 时 시"},
    {Role::eastHour, 1, plain, u"点 點 点钟 點鐘"},
    {Role::eastMinute, 0, plain, u"分 분"},
    {Role::eastSecond, 0, plain, u"秒 초"},
    {Role::eastHalf, 0, plain, u"半 반"},
    {Role::eastHalfDay, 0, plain, u"午前 上午 早上 凌晨 清晨 오전 아침 새벽"},
    {Role::eastHalfDay, 1, plain, u"午後 下午 晚上 夜 傍晚 中午 오후 저녁 밤"},
};

/// Several words that mean what one word of that role means.
struct Phrase {
    Role role;
    const char16_t* words;
};

inline constexpr Phrase datePhrases[] = {
    {Role::agoLead, u"il y a"},
    {Role::inLead, u"dentro de"},
    {Role::inLead, u"daqui a"},
    {Role::whichAfter, u"que viene"},
    {Role::whichAfter, u"que vem"},
    {Role::ago, u"from now"},
    {Role::ago, u"from today"},
    {Role::ago, u"from tomorrow"},
    {Role::dayName, u"the day after tomorrow"},
    {Role::dayName, u"day after tomorrow"},
    {Role::dayName, u"the day before yesterday"},
    {Role::dayName, u"day before yesterday"},
    {Role::dayName, u"pasado manana"},
    {Role::dayName, u"apres demain"},
    {Role::dayName, u"avant hier"},
    {Role::dayName, u"depois de amanha"},
    {Role::dayName, u"l an dernier"},
    {Role::dayName, u"l an passe"},
    {Role::dayName, u"l an prochain"},
};

// clang-format on

} // namespace quorvel
