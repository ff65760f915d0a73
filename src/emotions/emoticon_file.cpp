#include "emotions/emoticon_file.h"

#include "platform/text_file.h"

#include <QFile>

#include <sys/stat.h>

EmoticonFile::EmoticonFile(const QString &applicationFolder) : m_path(applicationFolder + u"Emoticon.dat") {}

EmoticonFile::Stamp EmoticonFile::stampOf(const QString &path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) {
        return {-1, -1, -1};
    }
    return {status.st_size, status.st_mtim.tv_sec * 1'000'000'000 + status.st_mtim.tv_nsec,
            static_cast<qint64>(status.st_ino)};
}

const clsEmoticons &EmoticonFile::table()
{
    if (const Stamp stamp = stampOf(m_path); stamp != m_stamp) {
        m_stamp = stamp;
        m_table = clsEmoticons(readTextFile(m_path).value_or(QString()));
    }
    return m_table;
}
