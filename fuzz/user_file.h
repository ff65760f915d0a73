#pragma once

#include "fuzzing.h"
#include "platform/text_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

/// Where a target keeps the file that it makes of its input: in memory where there is such a place. It is
/// gone when the fuzzer ends.
inline QString scratchFile(const QString &name)
{
    const QString memory = QStringLiteral("/dev/shm");
    static const QTemporaryDir folder(
        QString((QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) % u"/pylox-fuzz-XXXXXX"));
    return folder.filePath(name);
}

inline void putFile(const QString &path, QByteArrayView bytes)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes.data(), bytes.size()) == bytes.size());
}

/// The bytes as the programs read a text file.
inline QString userFile(QByteArrayView bytes)
{
    const QString path = scratchFile(QStringLiteral("input.txt"));
    putFile(path, bytes);
    return readTextFile(path).value();
}
