#pragma once

#include <QStringView>

namespace quorvel {

/// Where the password stands that an option announces.
enum class Place : quint8 {
    next,         ///< -p x
    attached,     ///< -px
    either,       ///< -p x, -px
    afterColon,   ///< -u user:x
    afterPercent, ///< -U user%x
    afterComma,   ///< -u user,x
    login,        ///< -p x, only where the arguments say "login"
    striking,     ///< -p x, perhaps with a digit before; only what is no word
    second,       ///< the second argument, where the option is the first
    third,        ///< the third argument, where the option is the first
    fourth,       ///< the fourth argument, where the option is the first
    sixth,        ///< the sixth argument, where the option is the first
    piped,        ///< the argument, where a pipe leads to a reader of passwords
};

struct Option {
    QStringView command;
    QStringView option;
    Place place;
};

inline constexpr Option options[] = {
    {u"curl", u"-u", Place::afterColon},
    {u"curl", u"--user", Place::afterColon},
    {u"curl", u"-U", Place::afterColon},
    {u"curl", u"--proxy-user", Place::afterColon},
    {u"http", u"-a", Place::afterColon},
    {u"xh", u"-a", Place::afterColon},
    {u"mysql", u"-p", Place::attached},
    {u"mysqldump", u"-p", Place::attached},
    {u"mysqladmin", u"-p", Place::attached},
    {u"mariadb", u"-p", Place::attached},
    {u"mysqlimport", u"-p", Place::attached},
    {u"mysqlsh", u"-p", Place::attached},
    {u"sshpass", u"-p", Place::either},
    {u"mongo", u"-p", Place::either},
    {u"mongosh", u"-p", Place::either},
    {u"mongodump", u"-p", Place::either},
    {u"mongorestore", u"-p", Place::either},
    {u"mongoimport", u"-p", Place::either},
    {u"docker", u"-p", Place::login},
    {u"podman", u"-p", Place::login},
    {u"helm", u"-p", Place::login},
    {u"az", u"-p", Place::login},
    {u"oc", u"-p", Place::login},
    {u"unzip", u"-P", Place::either},
    {u"zip", u"-P", Place::either},
    {u"7z", u"-p", Place::attached},
    {u"7za", u"-p", Place::attached},
    {u"rar", u"-hp", Place::attached},
    {u"unrar", u"-p", Place::attached},
    {u"redis-cli", u"-a", Place::next},
    {u"ldapsearch", u"-w", Place::either},
    {u"ldapadd", u"-w", Place::either},
    {u"ldapmodify", u"-w", Place::either},
    {u"ldapwhoami", u"-w", Place::either},
    {u"sqlcmd", u"-P", Place::either},
    {u"bcp", u"-P", Place::either},
    {u"ipmitool", u"-P", Place::next},
    {u"rdesktop", u"-p", Place::either},
    {u"xfreerdp", u"/p:", Place::attached},
    {u"smbclient", u"-U", Place::afterPercent},
    {u"rpcclient", u"-U", Place::afterPercent},
    {u"lftp", u"-u", Place::afterComma},
    {u"openssl", u"pass:", Place::attached},
    {u"vncviewer", u"-passwd", Place::next},
    {u"plink", u"-pw", Place::next},
    {u"pscp", u"-pw", Place::next},
    {u"putty", u"-pw", Place::next},
    {u"psftp", u"-pw", Place::next},
    {u"rclone", u"obscure", Place::second},
    {u"ssh-keygen", u"-N", Place::next},
    {u"useradd", u"-p", Place::striking},
    {u"usermod", u"-p", Place::striking},
    {u"gpg", u"--passphrase", Place::next},
    {u"gpg2", u"--passphrase", Place::next},
    {u"iwctl", u"--passphrase", Place::next},
    {u"rootpw", u"--plaintext", Place::next},
    {u"keytool", u"-storepass", Place::next},
    {u"keytool", u"-keypass", Place::next},
    {u"jarsigner", u"-storepass", Place::next},
    {u"htpasswd", u"-b", Place::fourth},
    {u"htpasswd", u"-cb", Place::fourth},
    {u"htpasswd", u"-bc", Place::fourth},
    {u"net", u"user", Place::third},
    {u"net", u"/user:", Place::striking},
    {u"wpa_passphrase", u"", Place::second},
    {u"mc", u"alias", Place::sixth},
    {u"machine", u"password", Place::login},
    {u"default", u"password", Place::login},
    {u"username", u"password", Place::striking},
    {u"username", u"secret", Place::striking},
    {u"enable", u"password", Place::striking},
    {u"enable", u"secret", Place::striking},
    {u"snmp-server", u"community", Place::striking},
    {u"echo", u"", Place::piped},
    {u"printf", u"", Place::piped},
};

} // namespace quorvel
