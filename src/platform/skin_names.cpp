#include "platform/skin_names.h"

#include "platform/skin_error.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype mostShown = 120;

bool isDriveLetter(const QString &name)
{
    return name.size() >= 2 && name[1] == u':' && name[0].isLetter();
}

bool isControl(QChar c)
{
    return c.category() == QChar::Other_Control;
}

bool isJunk(const QString &path)
{
    const QString name = path.section(u'/', -1).toLower();
    return path.startsWith(u"__MACOSX/") || path == u"__MACOSX" || name == u".ds_store" ||
           name == u"thumbs.db" || name == u"desktop.ini";
}

} // namespace

QString printable(const QString &words)
{
    QString text = words.left(mostShown);
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return !c.isPrint() && !c.isSurrogate(); }, u'?');
    return words.size() > mostShown ? QString(text + u'\u2026') : text;
}

SkinName skinName(const QString &name)
{
    QString path = name;
    path.replace(u'\\', u'/');
    if (path.startsWith(u'/') || isDriveLetter(path)) {
        return {{}, QStringLiteral("the name is absolute")};
    }
    if (std::any_of(path.cbegin(), path.cend(), isControl)) {
        return {{}, QStringLiteral("control characters in the name")};
    }
    QStringList parts = path.split(u'/', Qt::SkipEmptyParts);
    parts.removeAll(QStringLiteral("."));
    if (parts.contains(u"..")) {
        return {{}, QStringLiteral("the name leads out of the skin")};
    }
    return {parts.join(u'/'), {}};
}

void SkinEntries::add(const QString &name, quint64 size, quint64 index)
{
    const auto refuse = [&](const QString &why) { throw SkinError(m_file, printable(name), why); };
    const SkinName place = skinName(name);
    if (!place.fault.isEmpty()) {
        refuse(place.fault);
    }
    if (++m_count > SkinLimits::entries) {
        refuse(QStringLiteral("more than %1 entries").arg(SkinLimits::entries));
    }
    if (size > static_cast<quint64>(SkinLimits::bytes - m_size)) {
        refuse(QStringLiteral("more than %1 MiB unpacked").arg(SkinLimits::bytes >> 20));
    }
    m_size += static_cast<qint64>(size);
    if (place.path.isEmpty() || isJunk(place.path)) {
        return;
    }
    const QString folded = place.path.normalized(QString::NormalizationForm_C).toCaseFolded();
    if (std::exchange(m_folded[folded], true)) {
        refuse(QStringLiteral("the name is there twice"));
    }
    if (!name.endsWith(u'/') && !name.endsWith(u'\\')) {
        m_places.insert(place.path, m_entries.size());
        m_entries.push_back({place.path, static_cast<qint64>(size), index});
    }
}

const SkinEntry *SkinEntries::find(const QString &path) const
{
    const auto place = m_places.constFind(path);
    return place == m_places.constEnd() ? nullptr : &m_entries[*place];
}
