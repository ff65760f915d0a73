#pragma once

#include <QList>
#include <QString>
#include <QUrl>

/// An address inside a text.
struct TextLink
{
    qsizetype from = 0;
    qsizetype length = 0;
    QUrl address; ///< complete: "www.…" gets the scheme http

    [[nodiscard]] qsizetype end() const { return from + length; }
};

/// The addresses in a text, in order: http, https, ftp and mailto, and what begins with "www.". Marks that
/// end a sentence, and brackets that were opened before the address, do not belong to it.
[[nodiscard]] QList<TextLink> findLinks(QStringView text);
