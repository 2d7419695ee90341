#include "smart/masking/PlaceholderWords.h"

#include <algorithm>

namespace quorvel {

namespace {

/// Stand for a password in examples; lower case.
constexpr QStringView placeholders[] = {
    u"password",    u"passwd",      u"passwort",
    u"pass",        u"pwd",         u"pw",
    u"secret",      u"guest",       u"user",
    u"username",    u"token",       u"changeme",
    u"pswd",        u"userpass",    u"motdepasse",
    u"mdp",         u"senha",       u"clave",
    u"heslo",       u"haslo",       u"contrase\u00F1a",
    u"contrasena",  u"kennwort",    u"parola",
    u"parol",       u"api_key",     u"apikey",
    u"mypassword",  u"my-password", u"mysecretpassword",
    u"example",     u"pass123",     u"password123",
    u"placeholder", u"wachtwoord",  u"has\u0142o",
    u"\u0161ifra",  u"пароль",      u"密码",
    u"パスワード",
};

} // namespace

bool isPlaceholderWord(QStringView word) {
    return std::ranges::any_of(placeholders, [word](QStringView placeholder) {
        return word.compare(placeholder, Qt::CaseInsensitive) == 0;
    });
}

} // namespace quorvel
