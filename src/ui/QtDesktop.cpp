#include "ui/QtDesktop.h"

#include <QDesktopServices>
#include <QMessageBox>
#include <QUrl>

namespace quorvel {

bool QtDesktop::openFile(const QString& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
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
