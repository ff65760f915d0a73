#include "platform/rich_mime.h"

#include "richtext/rtf_writer.h"

RichMime::RichMime(RichDocument text) : m_text(std::move(text)) {}

QStringList RichMime::formats() const
{
    return {QStringLiteral("text/plain"), QStringLiteral("text/rtf"), QStringLiteral("application/rtf")};
}

bool RichMime::hasFormat(const QString &mimeType) const
{
    return formats().contains(mimeType);
}

QVariant RichMime::retrieveData(const QString &mimeType, [[maybe_unused]] QMetaType type) const
{
    if (mimeType == u"text/plain") {
        return m_text.plainText();
    }
    if (mimeType.endsWith(u"/rtf")) {
        return writeRtf(m_text);
    }
    return {};
}
