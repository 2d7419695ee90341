#pragma once

#include <QStringView>

namespace quorvel {

/// Stems of what a code opens or proves, in many languages; lower case, without regard to accents
/// where a stem can do without the accented letter.
inline constexpr QStringView openingStems[] = {
    // To sign in
    u"verif", u"v\u00E9rif", u"confirm", u"conferm", u"security", u"s\u00E9curit", u"segur",
    u"sicurezza", u"sicherheit", u"login", u"log in", u"log-in", u"sign in", u"sign-in", u"signin",
    u"anmeld", u"einmal", u"one-time", u"one time", u"onetime", u"auth", u"otp", u"2fa", u"two-factor",
    u"acces", u"access", u"acceso", u"acesso", u"zugang", u"zutritt", u"freischalt", u"aktivier",
    u"activat", u"activac", u"ativa\u00E7", u"attivazione", u"best\u00E4tig", u"bevestig", u"bekr\u00E6ft",
    u"bekr\u00E4ft", u"bekreft", u"vahvist", u"weryfik", u"potwierdz", u"ov\u011B\u0159", u"overov",
    u"potvr", u"meger\u0151s\u00EDt", u"ellen\u0151rz", u"do\u011Frula", u"onay", u"g\u00FCvenlik",
    u"your code", u"dein code", u"ihr code", u"votre code", u"ton code", u"tu c\u00F3digo",
    u"su c\u00F3digo", u"seu c\u00F3digo", u"tuo codice", u"suo codice", u"uw code", u"je code",
    u"din kod", u"din kode", u"tw\u00F3j kod", u"v\u00E1\u0161 k\u00F3d", u"va\u0161 kod", u"codul t\u0103u",
    u"koodisi", u"kodunuz", u"kod pin", u"подтвержд", u"підтвердж", u"потвърж", u"потврд",
    u"проверочн", u"доступ", u"вход", u"входу", u"ваш код", u"твой код", u"активац", u"безопасн",
    u"επαληθ", u"επιβεβ", u"tan", u"unlock", u"entsperr", u"kode anda", u"kode verif",
    u"x\u00E1c th", u"x\u00E1c minh",
    // Doors, boxes and alarms
    u"door", u"gate", u"garage", u"alarm", u"safe", u"lock", u"entry", u"entrance", u"keypad",
    u"t\u00FCr", u"tuer", u"haust", u"tor ", u"torcode", u"tresor", u"schloss", u"eingang", u"porte",
    u"portail", u"portier", u"immeuble", u"coffre", u"digicode", u"puerta", u"port\u00F3n", u"caja fuerte",
    u"portal", u"port\u00E3o", u"porta", u"cofre", u"cancello", u"portone", u"cassaforte", u"citofono",
    u"allarme", u"drzwi", u"bram", u"domofon", u"sejf", u"dve\u0159", u"vchod", u"trezor", u"kapu",
    u"sz\u00E9f", u"deur", u"poort", u"kluis", u"d\u00F6rr", u"d\u00F8r", u"ovi", u"ovikood", u"kap\u0131",
    u"kasa", u"двер", u"подъезд", u"домофон", u"ворот", u"сейф", u"калит", u"сигнализац", u"під'їзд",
    u"интерфон", u"вхідн", u"padlock", u"zahlenschloss", u"safe ", u"locker", u"kofferraum",
    u"briefcase", u"suitcase", u"vorh\u00E4ngeschl",
};

/// Stems that make a code another thing.
inline constexpr QStringView otherCodeStems[] = {
    u"zip", u"postal", u"post code", u"postcode", u"postleit", u"promo", u"coupon", u"discount",
    u"rabatt", u"gutschein", u"voucher", u"gift", u"error", u"exit", u"status", u"response",
    u"return code", u"fehler", u"erreur", u"country", u"area code", u"dial", u"order", u"booking",
    u"reserv", u"buchung", u"swift", u"sort code", u"bank code", u"iban", u"project", u"course",
    u"product", u"article", u"artikel", u"item", u"color", u"colour", u"farb", u"language", u"source",
    u"qr", u"bar", u"hs code", u"icd", u"tax", u"codice fiscale", u"pocztow", u"почтов", u"индекс",
    u"referral", u"invite", u"descuento", u"cupom", u"desconto", u"sconto", u"r\u00E9duction",
    u"airport", u"currency", u"unicode", u"keycode", u"char", u"ascii", u"http", u"opcode", u"tracking",
    u"gate b", u"terminal", u"flight", u"gate a", u"importan", u"ошибк", u"promocod", u"промокод",
};

/// Stems of questions that prove who one is.
inline constexpr QStringView questionStems[] = {
    u"secret", u"securit", u"sicherheit", u"geheim", u"s\u00E9curit", u"seguri", u"sicurezza",
    u"bezpiecz", u"контрольн", u"секретн",
};

inline constexpr QStringView networkStems[] = {
    u"ssid", u"wifi", u"nettet", u"netv\u00E6rk", u"n\u00E4tet", u"вайфа", u"wi-fi", u"wlan", u"wpa", u"network", u"netzwerk", u"r\u00E9seau", u"hotspot",
    u"router",
};

} // namespace quorvel
