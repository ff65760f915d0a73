#pragma once

#include "core/options.h"

#include <QString>
#include <QStringList>

/// The font that the user writes in. The size is in points.
struct ComposeFont
{
    QString name;
    double size = 10;
    bool bold = false;
    bool italic = false;
    bool underlined = false;

    friend bool operator==(const ComposeFont &, const ComposeFont &) = default;
};

/// What an options file holds.
struct SavedOptions
{
    Options options;
    ComposeFont font;
    QStringList unknownLines; ///< kept as they are
};

/// The options file as text: one option a line, the key in a field of 13 characters, then the value; lines
/// end with CR LF.
[[nodiscard]] QString optionsText(const SavedOptions &saved);

/// Reads such a text over the defaults. A value that is not to be understood leaves its option as it is;
/// lines with unknown keys are kept. Keys are compared exactly.
[[nodiscard]] SavedOptions readOptions(QStringView text, SavedOptions defaults);

/// The options file of a skin: "Blue ChatOpt.dat" in the application folder, which ends with a separator.
[[nodiscard]] QString optionsFile(const QString &applicationFolder, const QString &skinName);
