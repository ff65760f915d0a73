#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Text files that people and other programs edit: written as UTF-8, read as UTF-8, and a file that is not
/// valid UTF-8 is read as windows-1252.

/// The file's text without a byte order mark; none when it is no file, cannot be read, or is larger
/// than 16 MiB.
[[nodiscard]] std::optional<QString> readTextFile(const QString &path);

/// Replaces the file as a whole: after a crash or on a full disk the old one is still there. False on
/// failure.
[[nodiscard]] bool writeTextFile(const QString &path, const QString &text);
