#pragma once

#include <QString>

/// The tables of all sections and keys, as Markdown.
[[nodiscard]] QString keyReference();

/// The document with these tables between its lines "<!-- keys -->" and "<!-- end of keys -->". Empty when it
/// has no such lines.
[[nodiscard]] QString withKeyReference(const QString &document);
