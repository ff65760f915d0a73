#pragma once

#include <QString>
#include <QStringList>

namespace messenger {

/// Where skins lie: the application folder's own, then those that ship with the programs.
[[nodiscard]] QStringList skinFolders(const QString &home, const QString &executableFolder);

/// The skin file of a bare name ("Dark") in the first of the folders that has it, else in the first. A text
/// that is no bare name is a path and stays.
[[nodiscard]] QString findSkin(const QString &nameOrPath, const QStringList &folders);

} // namespace messenger
