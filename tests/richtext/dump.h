#pragma once

#include "richtext/document.h"

/// A document as text that shows all there is to it: a line a paragraph, each run behind its look in
/// brackets.
inline QString dump(const RichDocument &document)
{
    const auto look = [&](const TextFormat &format) {
        QString text = QString::number(format.halfPoints);
        const QString font = document.fonts()[format.font];
        text += font.isEmpty() ? QString() : QString(u' ' + font);
        text += format.bold ? u" b" : u"";
        text += format.italic ? u" i" : u"";
        text += format.underline ? u" u" : u"";
        text += format.strikeOut ? u" s" : u"";
        text += format.colour != automaticColour ? QString(u" c" + QString::number(format.colour, 16))
                                                 : QString();
        text += format.background != automaticColour ? QString(u" h" + QString::number(format.background, 16))
                                                     : QString();
        return text;
    };
    QStringList lines;
    for (qsizetype index = 0; index < document.paragraphCount(); ++index) {
        const Paragraph &paragraph = document.paragraph(index);
        const ParagraphFormat &stand = document.paragraphFormat(paragraph.format());
        QString line;
        if (stand != ParagraphFormat()) {
            line += u"<" + QString::number(static_cast<int>(stand.alignment)) + u' ' +
                    QString::number(stand.spaceBefore) + u' ' + QString::number(stand.leftIndent) + u' ' +
                    QString::number(stand.firstLineIndent) + u'>';
        }
        qsizetype start = 0;
        for (const Run &run : paragraph.runs()) {
            const QString picture =
                run.picture == 0 ? QString() : QString(u" pic " + document.picture(run.picture).code);
            line += u'[' + look(document.format(run.format)) + picture + u']' +
                    paragraph.text().sliced(start, run.end - start).toString();
            start = run.end;
        }
        lines += line;
    }
    return lines.join(u'\n');
}
