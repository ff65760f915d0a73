#include "platform/addresses.h"

#include "platform/settings_file.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>

namespace {

/// The page that the settings name, else the one that ships with the program.
QUrl pageOf(const SettingsFile &settings, const QString &key, const QString &shipped)
{
    const QString page = settings.ReadValue(key, {}, QStringLiteral("Chat"));
    return page.isEmpty() ? QUrl::fromLocalFile(shipped) : QUrl(page);
}

} // namespace

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
    QUrl address = pageOf(settings, QStringLiteral("HelpPage"), pagesFolder + u"/help/index.html");
    address.setFragment(anchor);
    addresses.open(address);
}

void ShowEmoticonHelp(const SettingsFile &settings, const QString &pagesFolder, Addresses &addresses)
{
    addresses.open(
        pageOf(settings, QStringLiteral("EmoticonHelpPage"), pagesFolder + u"/help/emoticons.html"));
}
