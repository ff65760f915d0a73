#pragma once

#include "emotions/clsEmoticons.h"

#include <QString>

#include <tuple>

/// The emoticon table as Emoticon.dat of the application folder has it at this moment. The file is looked at
/// each time, and read again only when it has changed.
class EmoticonFile
{
public:
    /// The application folder, with its separator at the end.
    explicit EmoticonFile(const QString &applicationFolder);

    /// The table; it holds until the next call.
    [[nodiscard]] const clsEmoticons &table();

private:
    /// Size, time of change in nanoseconds, and the file itself; all -1 for no file.
    using Stamp = std::tuple<qint64, qint64, qint64>;
    [[nodiscard]] static Stamp stampOf(const QString &path);

    QString m_path;
    Stamp m_stamp{-1, -1, -1};
    clsEmoticons m_table;
};
