#include "platform/skin_archive.h"
#include "platform/skin_error.h"
#include "platform/whole_file.h"

#include <algorithm>
#include <zip.h>

namespace {

constexpr zip_uint16_t fixedTime = 0;
constexpr zip_uint16_t fixedDate = (1 << 5) | 1; // the first day that archives know: 1 January 1980
constexpr zip_uint32_t fixedMode = 0100644U << 16;

using Source = std::unique_ptr<zip_source_t, void (*)(zip_source_t *)>;

[[noreturn]] void fail(zip_error_t *error)
{
    throw SkinError(QString(u"the archive cannot be made: " + QString::fromUtf8(zip_error_strerror(error))));
}

void add(zip_t *archive, const SkinContent &content)
{
    zip_source_t *source = zip_source_buffer(archive, content.bytes.constData(),
                                             static_cast<zip_uint64_t>(content.bytes.size()), 0);
    const zip_int64_t added = source == nullptr ? -1
                                                : zip_file_add(archive, content.path.toUtf8().constData(),
                                                               source, ZIP_FL_ENC_UTF_8);
    if (added < 0) {
        zip_source_free(source);
        fail(zip_get_error(archive));
    }
    // PNG is packed already; unpacking it once more would only cost time at each start.
    const auto index = static_cast<zip_uint64_t>(added);
    const bool isPacked = content.path.endsWith(u".png", Qt::CaseInsensitive);
    if (zip_set_file_compression(archive, index, isPacked ? ZIP_CM_STORE : ZIP_CM_DEFLATE, 9) != 0 ||
        zip_file_set_dostime(archive, index, fixedTime, fixedDate, 0) != 0 ||
        zip_file_set_external_attributes(archive, index, 0, ZIP_OPSYS_UNIX, fixedMode) != 0) {
        fail(zip_get_error(archive));
    }
}

QByteArray contentOf(zip_source_t *source)
{
    zip_stat_t stat;
    if (zip_source_stat(source, &stat) != 0 || zip_source_open(source) != 0) {
        fail(zip_source_error(source));
    }
    QByteArray bytes(static_cast<qsizetype>(stat.size), Qt::Uninitialized);
    const zip_int64_t size = zip_source_read(source, bytes.data(), stat.size);
    zip_source_close(source);
    if (size != bytes.size()) {
        fail(zip_source_error(source));
    }
    return bytes;
}

} // namespace

QByteArray skinArchive(std::vector<SkinContent> contents)
{
    std::sort(contents.begin(), contents.end(),
              [](const SkinContent &a, const SkinContent &b) { return a.path < b.path; });
    SkinEntries entries(QStringLiteral("archive"));
    zip_error_t error;
    zip_error_init(&error);
    const Source source(zip_source_buffer_create(nullptr, 0, 0, &error), &zip_source_free);
    zip_t *archive = source ? zip_open_from_source(source.get(), ZIP_TRUNCATE, &error) : nullptr;
    if (archive == nullptr) {
        fail(&error);
    }
    zip_source_keep(source.get());
    std::unique_ptr<zip_t, void (*)(zip_t *)> open(archive, &zip_discard);
    for (const SkinContent &content : contents) {
        entries.add(content.path, static_cast<quint64>(content.bytes.size()));
        add(archive, content);
    }
    if (zip_close(archive) != 0) {
        fail(zip_get_error(archive));
    }
    (void)open.release();
    return contentOf(source.get());
}

void writeSkinArchive(std::vector<SkinContent> contents, const QString &path)
{
    const QByteArray bytes = skinArchive(std::move(contents));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !commitWhole(file)) {
        throw SkinError(path, {}, file.errorString());
    }
}
