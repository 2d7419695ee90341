#pragma once

#include <QString>
#include <QUrl>

namespace quorvel {

/// Something that has happened, to be told in passing.
struct Notice {
    QString symbol; ///< Name of the icon.
    QString title;
    QString detail; ///< Empty for nothing.
};

/// What we ask of the desktop around us.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// Opens a file in the program that the user has chosen for its kind; false when none took it.
    virtual bool openFile(const QString& path) = 0;

    /// Opens an address in the program that the user has chosen for its kind; false when none took
    /// it. Only addresses of the web (http, https, ftp, ftps), of mail and of telephones: others
    /// may do anything.
    virtual bool openUrl(const QUrl& url) = 0;

    /// A message with one button that does not hold up anything; closed by the user.
    virtual void showMessage(const QString& title, const QString& message) = 0;

    /// Shows it for a moment without taking the focus; a newer one replaces it.
    virtual void showNotice(const Notice& notice) = 0;
};

} // namespace quorvel
