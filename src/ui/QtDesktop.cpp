#include "ui/QtDesktop.h"

#include <QDesktopServices>
#include <QMessageBox>
#include <QUrl>

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

constexpr std::array openedSchemes{QStringView(u"http"),   QStringView(u"https"),
                                   QStringView(u"ftp"),    QStringView(u"ftps"),
                                   QStringView(u"mailto"), QStringView(u"tel")};

} // namespace

bool QtDesktop::openFile(const QString& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool QtDesktop::openUrl(const QUrl& url) {
    return url.isValid() && std::ranges::count(openedSchemes, url.scheme()) > 0 &&
           QDesktopServices::openUrl(url);
}

void QtDesktop::showMessage(const QString& title, const QString& message) {
    auto* box = new QMessageBox(QMessageBox::Information, title, title, QMessageBox::Ok);
    box->setInformativeText(message);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
    box->raise();
    box->activateWindow();
}

} // namespace quorvel
