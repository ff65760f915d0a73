#pragma once

#include <QString>
#include <QUrl>

class SettingsFile;

/// Opens addresses with the program that the desktop has for them.
class Addresses
{
public:
    Addresses() = default;
    Addresses(const Addresses &) = delete;
    Addresses &operator=(const Addresses &) = delete;
    virtual ~Addresses() = default;

    /// False when the address is of a kind that is not opened, or nothing opens it.
    virtual bool open(const QUrl &address) = 0;
};

/// Opens http, https, ftp and mailto, and the program's own pages; nothing else, since addresses come from
/// strangers. No shell is involved.
class DesktopAddresses final : public Addresses
{
public:
    /// The folder of the program's own pages.
    explicit DesktopAddresses(const QString &pagesFolder) : m_pagesFolder(pagesFolder) {}

    bool open(const QUrl &address) override;

    [[nodiscard]] bool isAllowed(const QUrl &address) const;

private:
    QString m_pagesFolder;
};

/// The folder of the pages that ship with the program, for an executable in that folder: where the build or
/// the installation has put them.
[[nodiscard]] QString pagesFolder(const QString &executableFolder);

/// Opens the help page at the anchor: the page that the settings name under [Chat] HelpPage, else the one
/// that ships with the program.
void ShowHelp(const QString &anchor, const SettingsFile &settings, const QString &pagesFolder,
              Addresses &addresses);

/// Opens the page about emoticons: the one that the settings name under [Chat] EmoticonHelpPage, else the one
/// that ships with the program.
void ShowEmoticonHelp(const SettingsFile &settings, const QString &pagesFolder, Addresses &addresses);
