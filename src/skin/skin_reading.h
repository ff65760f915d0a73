#pragma once

#include "skin/skin_catalogue.h"
#include "skin/skin_item_value.h"

#include <QStringView>

class SkinStorage;

/// The key's value as the program holds it; what the storage has nothing for is empty.
[[nodiscard]] SkinItemValue readSkinValue(SkinStorage &storage, const QString &key, SkinKind kind);

/// The number that the text starts with, rounded, halves to the even one; spaces are skipped. 0 when there is
/// none, the nearest that fits when it does not.
[[nodiscard]] qint32 leadingNumber(QStringView text);
