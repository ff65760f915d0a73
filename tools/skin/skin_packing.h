#pragma once

#include "platform/skin_archive.h"

#include <QStringList>

/// What a skin file holds, and its way into an archive and out of it. Everything throws SkinError.

/// Writes the skin's skin.toml and the pictures that it names, with those for fine screens, as an archive.
/// The same skin always makes the same bytes. What the program would refuse is not written. Gives the names
/// of pictures that are not there.
QStringList packSkin(const QString &folder, const QString &file);

/// Writes all files of the skin into a folder that is empty or not there yet: all of them, or none.
void unpackSkin(const QString &file, const QString &folder);

/// Writes the files into a folder that is empty or not there yet: all of them, or none.
void writeSkinFolder(const std::vector<SkinContent> &contents, const QString &folder);
