#include "platform/skin_archive.h"

#include "platform/skin_error.h"

#include <QStringDecoder>

#include <zip.h>

namespace {

// The upper half of an entry's attributes is what Unix calls its mode.
constexpr quint32 modeShift = 16;
constexpr quint32 modeType = 0170000;
constexpr quint32 modeFile = 0100000;
constexpr quint32 modeFolder = 0040000;

/// Opening takes memory for as many entries as the archive has headers: those are counted first.
bool hasTooManyEntries(const QByteArray &bytes)
{
    int count = 0;
    qsizetype at = -1;
    while (count <= SkinLimits::entries && (at = bytes.indexOf("PK\1\2", at + 1)) >= 0) {
        ++count;
    }
    return count > SkinLimits::entries;
}

QString words(zip_error_t &error)
{
    return QString::fromUtf8(zip_error_strerror(&error));
}

zip *openArchive(const QByteArray &bytes, const QString &file)
{
    const auto refuse = [&](const QString &why) { throw SkinError(file, {}, why); };
    if (bytes.size() > SkinLimits::bytes) {
        refuse(QStringLiteral("larger than %1 MiB").arg(SkinLimits::bytes >> 20));
    }
    if (hasTooManyEntries(bytes)) {
        refuse(QStringLiteral("more than %1 entries").arg(SkinLimits::entries));
    }
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t *source =
        zip_source_buffer_create(bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0, &error);
    zip *archive = source == nullptr ? nullptr : zip_open_from_source(source, ZIP_RDONLY, &error);
    if (archive == nullptr) {
        zip_source_free(source);
        const QString why = words(error);
        zip_error_fini(&error);
        refuse(QString(u"no skin archive, or a damaged one: " + why));
    }
    return archive;
}

/// Empty when a skin may have such an entry.
QString faultOf(zip *archive, const zip_stat_t &stat)
{
    constexpr zip_uint64_t needed = ZIP_STAT_SIZE | ZIP_STAT_COMP_METHOD | ZIP_STAT_ENCRYPTION_METHOD;
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    if ((stat.valid & needed) != needed ||
        zip_file_get_external_attributes(archive, stat.index, 0, &system, &attributes) != 0) {
        return QStringLiteral("damaged");
    }
    if (stat.encryption_method != ZIP_EM_NONE) {
        return QStringLiteral("encrypted");
    }
    if (stat.comp_method != ZIP_CM_STORE && stat.comp_method != ZIP_CM_DEFLATE) {
        return QStringLiteral("packed in a way that skins do not use");
    }
    const quint32 type = (attributes >> modeShift) & modeType;
    return type == 0 || type == modeFile || type == modeFolder
               ? QString()
               : QStringLiteral("neither a file nor a folder, but a link or a device");
}

} // namespace

void SkinArchive::Discard::operator()(zip *archive) const
{
    zip_discard(archive);
}

SkinArchive::SkinArchive(QByteArray bytes, const QString &file)
    : m_bytes(std::move(bytes)), m_file(file), m_zip(openArchive(m_bytes, file)), m_entries(file)
{
    const zip_int64_t count = zip_get_num_entries(m_zip.get(), 0);
    for (zip_int64_t index = 0; index < count; ++index) {
        addEntry(static_cast<quint64>(index));
    }
}

void SkinArchive::addEntry(quint64 index)
{
    zip_stat_t stat;
    const char *bytes = zip_get_name(m_zip.get(), index, ZIP_FL_ENC_RAW);
    if (bytes == nullptr || zip_stat_index(m_zip.get(), index, 0, &stat) != 0) {
        throw SkinError(m_file, QStringLiteral("entry %1").arg(index + 1), QStringLiteral("damaged"));
    }
    QStringDecoder utf8(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QString name = utf8.decode(QByteArrayView(bytes));
    const QString fault =
        utf8.hasError() ? QStringLiteral("the name is not UTF-8") : faultOf(m_zip.get(), stat);
    if (!fault.isEmpty()) {
        throw SkinError(m_file, printable(name), fault);
    }
    m_entries.add(name, stat.size, index);
}

std::optional<QByteArray> SkinArchive::read(const QString &path, qint64 mostBytes) const
{
    const SkinEntry *entry = m_entries.find(path);
    if (entry == nullptr) {
        return std::nullopt;
    }
    const auto refuse = [&](const QString &why) { throw SkinError(m_file, printable(path), why); };
    if (entry->size > mostBytes) {
        refuse(QStringLiteral("larger than %1 bytes").arg(mostBytes));
    }
    const std::unique_ptr<zip_file_t, int (*)(zip_file_t *)> file(
        zip_fopen_index(m_zip.get(), entry->index, 0), &zip_fclose);
    if (!file) {
        refuse(QString(u"damaged: " + words(*zip_get_error(m_zip.get()))));
    }
    // One byte more than there should be is asked for, and then once more: the former tells an entry that is
    // larger than it says, the latter is what compares the check sum.
    QByteArray bytes(entry->size + 1, Qt::Uninitialized);
    const zip_int64_t size = zip_fread(file.get(), bytes.data(), static_cast<zip_uint64_t>(bytes.size()));
    char beyond = 0;
    if (size < 0 || zip_fread(file.get(), &beyond, 1) < 0) {
        refuse(QString(u"damaged: " + words(*zip_file_get_error(file.get()))));
    }
    if (size != entry->size) {
        refuse(QStringLiteral("not as large as the archive says"));
    }
    bytes.truncate(size);
    return bytes;
}
