#include "platform/settings_file.h"

#include "platform/text_file.h"

#include <QFileInfo>
#include <QLockFile>
#include <QStringList>
#include <QThread>

#include <optional>

namespace {

/// A name that cannot end its line or its section. Spaces around it would not be read back.
QString safeName(const QString &name)
{
    QString safe = name;
    for (QChar &c : safe) {
        if (c < u' ' || c == u']' || c == u'[' || c == u'=') {
            c = u'_';
        }
    }
    return safe.trimmed();
}

QString oneLine(const QString &value)
{
    QString line = value;
    return line.replace(u'\n', u' ').replace(u'\r', u' ').trimmed();
}

bool isSame(QStringView a, QStringView b)
{
    return a.trimmed().compare(b, Qt::CaseInsensitive) == 0;
}

/// The name in the heading of a section; none for any other line.
std::optional<QStringView> sectionOf(QStringView line)
{
    const QStringView heading = line.trimmed();
    if (!heading.startsWith(u'[')) {
        return std::nullopt;
    }
    return heading.sliced(1, qMax(heading.indexOf(u']'), qsizetype(1)) - 1);
}

bool isKey(QStringView line, QStringView key)
{
    return line.contains(u'=') && isSame(line.first(line.indexOf(u'=')), key);
}

/// Where a key is, or would be; -1 for nowhere.
struct Place
{
    qsizetype key = -1;
    qsizetype sectionEnd = -1; ///< behind the section's last line that is not empty
};

/// Of a key that is there twice the last one counts.
Place find(const QStringList &lines, QStringView section, QStringView key)
{
    Place place;
    bool inside = false;
    for (qsizetype at = 0; at < lines.size(); ++at) {
        const QStringView line = lines[at];
        if (const auto heading = sectionOf(line)) {
            inside = isSame(*heading, section);
        } else if (inside && isKey(line, key)) {
            place.key = at;
        }
        if (inside && !line.trimmed().isEmpty()) {
            place.sectionEnd = at + 1;
        }
    }
    return place;
}

/// Keeps other writers out between reading and writing. They hold the lock for a few milliseconds, so it is
/// waited for a moment and no more: where it cannot be had, a value is written without it.
class WriteLock
{
public:
    explicit WriteLock(const QString &fileName) : m_file(fileName + u".lock")
    {
        constexpr int tries = 50;
        constexpr int pause = 4;         // milliseconds
        constexpr int longestUse = 2000; // what is older has been left behind
        m_file.setStaleLockTime(longestUse);
        for (int i = 0; i < tries && !m_file.tryLock(0) && m_file.error() == QLockFile::LockFailedError;
             ++i) {
            QThread::msleep(pause);
        }
    }

private:
    QLockFile m_file;
};

/// None when there is something under that name that cannot be read, and must not be written over.
std::optional<QStringList> linesOf(const QString &fileName)
{
    const auto text = readTextFile(fileName);
    if (!text && QFileInfo::exists(fileName)) {
        return std::nullopt;
    }
    return text.value_or(QString()).split(u'\n');
}

/// Every other line stays as it is, those that are no settings too.
void put(QStringList &lines, const QString &section, const SettingsValue &entry)
{
    const QString lineEnd = lines.first().endsWith(u'\r') ? QStringLiteral("\r") : QString();
    const Place place = find(lines, safeName(section), safeName(entry.key));
    const QString text = safeName(entry.key) + u'=' + oneLine(entry.value) + lineEnd;
    if (place.key >= 0) {
        lines.replace(place.key, text);
    } else if (place.sectionEnd >= 0) {
        lines.insert(place.sectionEnd, text);
    } else {
        if (!lines.last().isEmpty()) {
            lines.append(QString());
        }
        if (lines.size() > 1) {
            lines.last() = lineEnd;
            lines.append(QString());
        }
        lines.last() = u'[' + safeName(section) + u']' + lineEnd;
        lines.append({text, QString()});
    }
}

} // namespace

QString SettingsFile::ReadValue(const QString &key, const QString &defaultValue, const QString &section) const
{
    const QStringList lines = linesOf(FileName).value_or(QStringList());
    const Place place = find(lines, safeName(section), safeName(key));
    if (place.key < 0) {
        return defaultValue;
    }
    const QString &line = lines[place.key];
    return line.sliced(line.indexOf(u'=') + 1).trimmed();
}

bool SettingsFile::WriteValue(const QString &key, const QString &value, const QString &section)
{
    return WriteValues({{key, value}}, section);
}

bool SettingsFile::WriteValues(const QList<SettingsValue> &values, const QString &section)
{
    const WriteLock lock(FileName);
    auto lines = linesOf(FileName);
    if (!lines) {
        return false;
    }
    for (const SettingsValue &each : values) {
        put(*lines, section, each);
    }
    return writeTextFile(FileName, lines->join(u'\n'));
}
