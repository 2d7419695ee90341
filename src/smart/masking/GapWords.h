#pragma once

#include <QStringView>

namespace quorvel {

/// Forms of "to be" and the like that stand before a value; lower case.
inline constexpr QStringView verbs[] = {
    u"is",        u"ist",       u"es",     u"est",   u"e",       u"\u00E8",
    u"\u00E9",    u"was",       u"lautet", u"war",   u"er",      u"\u00E4r",
    u"on",        u"jest",      u"je",     u"to",    u"auf",     u"este",
    u"ser\u00E1", u"sar\u00E0", u"adalah", u"ialah", u"yra",     u"\u00FEa\u00F0",
    u"это",       u"е",         u"је",     u"є",     u"це",      u"είναι",
    u"là",        u"היא",       u"הוא",    u"هي",    u"هو",      u"است",
    u"है",         u"হলো",       u"เป็น",    u"คือ",    u"olarak",  u"\u00E9s",
    u"zijn",      u"heißt",     u"heisst", u"now",   u"becomes", u"cambia",
    u"стал",      u"теперь",    u"is:",    u"jetzt",
};

/// The same in scripts that put no blank before them.
inline constexpr char16_t firstJoined = 0x0E00;
inline constexpr QStringView joinedVerbs[] = {
    u"は", u"是", u"为", u"為", u"은", u"는", u"가", u"이", u"คือ",
};

/// After such a word between label and separator the value is another thing; folded.
inline constexpr QStringView turningWords[] = {
    u"user",    u"username", u"login",     u"email",     u"mail",      u"account",  u"benutzer",
    u"konto",   u"hint",     u"length",    u"policy",    u"file",      u"expires",  u"expired",
    u"expire",  u"min",      u"max",       u"minimum",   u"maximum",   u"strength", u"age",
    u"field",   u"hash",     u"manager",   u"managers",  u"format",    u"type",     u"rules",
    u"must",    u"should",   u"muss",      u"mussen",    u"contains",  u"contain",  u"enthalt",
    u"version", u"last",     u"update",    u"attempts",  u"and",       u"und",      u"or",
    u"oder",    u"with",     u"error",     u"failed",    u"does",      u"not",      u"ask",
    u"see",     u"siehe",    u"link",      u"url",       u"reminder",  u"request",  u"label",
    u"name",    u"count",    u"number",    u"size",      u"index",     u"regex",    u"pattern",
    u"hashing", u"hashed",   u"encrypted", u"stored",    u"using",     u"via",      u"from",
    u"needs",   u"if",       u"when",      u"that",      u"expiry",    u"primaria", u"primary",
    u"public",  u"foranea",  u"created",   u"according", u"algorithm", u"used",     u"deleted",
    u"due",     u"history",  u"timeout",
};

/// The same, unless the separator says what the password became; folded.
inline constexpr QStringView changeWords[] = {
    u"changed", u"reset", u"updated", u"geandert", u"change", u"set", u"has", u"have",
};

/// A password may follow such a word without a separator; lower case.
inline constexpr QStringView networkWords[] = {
    u"wifi", u"wi-fi", u"wlan", u"вайфа", u"wi‑fi", u"роутер", u"router",
};

/// Elements whose end may stand between a label and its value.
inline constexpr QStringView labelElements[] = {
    u"key",    u"name", u"td",    u"th", u"dt", u"b",
    u"strong", u"span", u"label", u"em", u"i",  u"string",
};

} // namespace quorvel
