#include "ui/QtDesktop.h"

#include "ui/NoticePanel.h"

#include <QDesktopServices>
#include <QMessageBox>
#include <QUrl>

namespace quorvel {

QtDesktop::QtDesktop(const Icons& icons)
    : m_icons(icons) {}

QtDesktop::~QtDesktop() = default;

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

void QtDesktop::showNotice(const Notice& notice) {
    if (!m_noticePanel)
        m_noticePanel = std::make_unique<NoticePanel>(m_icons);
    m_noticePanel->present(notice);
}

} // namespace quorvel
