#include "ui/QtDesktop.h"

#include "ui/NoticePanel.h"
#include "ui/SchemeHandlers.h"

#include <QDesktopServices>
#include <QMessageBox>
#include <QUrl>

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

/// Which addresses are opened. The opener takes those of the web in any case, and hands others to a
/// browser when there is no program for them, which helps nobody.
constexpr std::array webSchemes{QStringView(u"http"), QStringView(u"https"), QStringView(u"ftp"),
                                QStringView(u"ftps")};
constexpr std::array otherSchemes{QStringView(u"mailto"), QStringView(u"tel")};

bool canOpen(const QString& scheme) {
    return std::ranges::count(webSchemes, scheme) > 0 ||
           (std::ranges::count(otherSchemes, scheme) > 0 && hasSchemeHandler(scheme));
}

} // namespace

QtDesktop::QtDesktop(const Icons& icons)
    : m_icons(icons) {}

QtDesktop::~QtDesktop() = default;

bool QtDesktop::openFile(const QString& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool QtDesktop::openUrl(const QUrl& url) {
    return url.isValid() && canOpen(url.scheme()) && QDesktopServices::openUrl(url);
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
