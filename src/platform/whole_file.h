#pragma once

#include <QSaveFile>

/// Puts the file in its place, once all of it is on the disk: commit() alone would replace the old one also
/// when the last bytes found no room. False on failure; the old file is still there then.
[[nodiscard]] inline bool commitWhole(QSaveFile &file)
{
    return file.flush() && file.commit();
}
