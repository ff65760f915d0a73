#include "tools/skin/skin_inspection.h"

QString sizeWords(QSize size)
{
    return QStringLiteral("%1 x %2 pixels").arg(size.width()).arg(size.height());
}

void SkinInspection::add(Severity severity, SkinKeyName name, const QString &text)
{
    m_findings.push_back({severity, m_skin.placeOf(name), QString(name.label() % u": " % text)});
}

void SkinInspection::readPicture(SkinKeyName name, const QString &file)
{
    try {
        const SkinPictures::Picture picture = m_reader.read(file, m_skin.files());
        if (picture.image.isNull()) {
            const QString advice = picture.isThere ? QStringLiteral("save it anew as PNG or BMP")
                                                   : QStringLiteral("draw it, or correct the name");
            error(name, QString(printable(file) % u' ' % picture.fault % u": " % advice));
            return;
        }
        m_pictures.insert(name.label(), picture.image);
        readFinePicture(name, fineNameOf(file), picture.image.size());
    } catch (const SkinError &refusal) {
        error(name, QString(reasonWithin(refusal, m_skin.files().file()) %
                            u": the program refuses the whole skin"));
    }
}

void SkinInspection::readFinePicture(SkinKeyName name, const QString &file, QSize coarse)
{
    const SkinPictures::Picture fine = m_reader.read(file, m_skin.files());
    if (!fine.isThere || fine.image.size() == coarse * 2) {
        return;
    }
    error(name, fine.image.isNull()
                    ? QString(printable(file) % u' ' % fine.fault % u": save it anew as PNG or BMP")
                    : QString(printable(file) % u" has " % sizeWords(fine.image.size()) %
                              u": it must be exactly twice as wide and high as the other, " %
                              sizeWords(coarse * 2)));
}

QImage SkinInspection::picture(SkinKeyName name) const
{
    return m_pictures.value(name.label());
}
