#pragma once

#include "richtext/document.h"

/// Paragraphs of plain text; "b|" before one makes it bold, "*" stands for a picture of 20 by 30 pixels with
/// the code ":)" and the name "smile".
inline RichDocument documentOf(const QStringList &paragraphs)
{
    RichDocument document;
    QImage image(20, 30, QImage::Format_RGB32);
    image.fill(Qt::green);
    const quint16 smile = document.pictureNumber(
        std::make_shared<const Picture>(Picture{image, QStringLiteral(":)"), QStringLiteral("smile")}));
    for (const QString &text : paragraphs) {
        TextFormat format;
        format.bold = text.startsWith(u"b|");
        const quint16 number = document.formatNumber(format);
        ParagraphBuilder builder;
        for (const QChar c : text.sliced(format.bold ? 2 : 0)) {
            if (c == u'*') {
                builder.appendPicture(smile, number);
            } else {
                builder.append(QStringView(&c, 1), number);
            }
        }
        document.appendParagraph(builder.take(0));
    }
    document.remove(0, 1); // the paragraph that every document begins with
    return document;
}
