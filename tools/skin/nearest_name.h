#pragma once

#include <QStringList>

/// The candidate that the name was probably meant to be: the one with the fewest mistakes (a letter too many,
/// too few, another one, or two exchanged), letter case aside. Empty when none is near.
[[nodiscard]] QString nearestName(const QString &name, const QStringList &candidates);
