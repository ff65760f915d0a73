// The RTF reader: whatever comes in. What it has read must be written and read back the same.

#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const QByteArrayView bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    RichDocument document;
    (void)readRtf(bytes, document);
    RichDocument again;
    if (!readRtf(QByteArrayView(writeRtf(document)), again).isOk() ||
        again.plainText() != document.plainText()) {
        std::abort();
    }
    RichDocument fromText;
    (void)readRtf(QString::fromLatin1(bytes), fromText);
    return 0;
}
