#pragma once

#include <QString>

/// Where the program keeps its files, ending with exactly one separator: the folder named by PYLOX_HOME, else
/// the executable's own folder when it can be written to and is no installation's (a portable copy), else the
/// user's data folder. The folder is not created here.
[[nodiscard]] QString applicationFolder(const QString &executableFolder);

/// The folder with exactly one separator at its end, the platform's own. A root keeps the one it has.
[[nodiscard]] QString withTrailingSeparator(const QString &folder);
