#include "platform/addresses.h"

#include "platform/settings_file.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>

bool DesktopAddresses::isAllowed(const QUrl &address) const
{
    if (!address.isValid()) {
        return false;
    }
    if (address.isLocalFile()) {
        const QString folder = QFileInfo(m_pagesFolder).canonicalFilePath();
        const QString file = QFileInfo(address.toLocalFile()).canonicalFilePath();
        return !folder.isEmpty() && file.startsWith(folder + u'/');
    }
    const QString scheme = address.scheme();
    return scheme == u"http" || scheme == u"https" || scheme == u"ftp" || scheme == u"mailto";
}

bool DesktopAddresses::open(const QUrl &address)
{
    return isAllowed(address) && QDesktopServices::openUrl(address);
}

QString pagesFolder(const QString &executableFolder)
{
    return QDir::cleanPath(executableFolder + u"/../share/pylox-chat");
}

void ShowHelp(const QString &anchor, const SettingsFile &settings, const QString &pagesFolder,
              Addresses &addresses)
{
    const QString page = settings.ReadValue(QStringLiteral("HelpPage"), {}, QStringLiteral("Chat"));
    QUrl address = page.isEmpty() ? QUrl::fromLocalFile(pagesFolder + u"/help.html") : QUrl(page);
    address.setFragment(anchor);
    addresses.open(address);
}
