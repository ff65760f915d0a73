#include "platform/text_file.h"

#include "platform/code_page.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

std::optional<QString> readTextFile(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QByteArray bytes = file.readAll();
    QStringDecoder utf8(QStringConverter::Utf8);
    QString text = utf8.decode(bytes);
    return utf8.hasError() ? CodePage().decode(bytes) : text;
}

bool writeTextFile(const QString &path, const QString &text)
{
    QSaveFile file(path);
    const QByteArray bytes = text.toUtf8();
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}
