#pragma once

#include <QString>

#include <iosfwd>

/// Draws everything that the skin brings into a picture file, at the scale at which the application runs.
/// Throws SkinError for a skin that the program would not wear and for a file that cannot be written.
void writePreview(const QString &skin, const QString &file, std::ostream &notes);
