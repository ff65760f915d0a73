#include "platform/text_file.h"

#include "platform/code_page.h"
#include "platform/whole_file.h"

#include <QFile>
#include <QFileInfo>

namespace {

constexpr qint64 largestFile = 16 << 20; // bytes: far more than anybody writes by hand

} // namespace

std::optional<QString> readTextFile(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const qint64 size = file.size();
    const QByteArray bytes = file.read(qMin(size, largestFile)); // and not for ever, should it grow meanwhile
    if (size > largestFile || file.error() != QFileDevice::NoError) {
        return std::nullopt;
    }
    const auto encoding = QStringConverter::encodingForData(bytes).value_or(QStringConverter::Utf8);
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    QString text = decoder.decode(bytes);
    return decoder.hasError() ? CodePage().decode(bytes) : text;
}

bool writeTextFile(const QString &path, const QString &text)
{
    QSaveFile file(path);
    const QByteArray bytes = text.toUtf8();
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && commitWhole(file);
}
