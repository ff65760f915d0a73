#include "tools/skin/skin_reference.h"

#include "tools/skin/key_notes.h"
#include "tools/skin/key_words.h"

namespace {

QStringView kindWords(SkinKind kind)
{
    switch (kind) {
    case SkinKind::Colour:
        return u"colour";
    case SkinKind::Number:
        return u"number";
    case SkinKind::Text:
        return u"text";
    case SkinKind::Font:
        return u"font";
    case SkinKind::Bitmap:
        break;
    }
    return u"picture";
}

QString rowOf(SkinKeyName name, SkinKind kind)
{
    return QString(u"| `" % name.key % u"` | " % kindWords(kind) %
                   QStringView(isNeeded(name) ? u", needed" : u"") % u" | " % purposeOf(name) % u" |\n");
}

} // namespace

QString keyReference()
{
    QString text;
    for (const SkinSection &section : skinCatalogue()) {
        text += QString(QStringView(text.isEmpty() ? u"" : u"\n") % u"### " % section.name % u"\n\n" %
                        section.purpose.left(1).toString().toUpper() % section.purpose.sliced(1) %
                        u".\n\n| key | kind | what it dresses |\n|---|---|---|\n");
        for (const SkinKey &key : section.keys) {
            text += rowOf({section.name, key.name}, key.kind);
        }
    }
    return text;
}

QString withKeyReference(const QString &document)
{
    constexpr QStringView begin = u"<!-- keys -->\n";
    const qsizetype from = document.indexOf(begin);
    const qsizetype to = document.indexOf(u"<!-- end of keys -->\n", from);
    if (from < 0 || to < 0) {
        return {};
    }
    return QString(QStringView(document).first(from + begin.size()) % u'\n' % keyReference() % u'\n' %
                   QStringView(document).sliced(to));
}
