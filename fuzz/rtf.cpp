// The RTF reader: whatever comes in, from files and from the clipboard. What it has read must be written and
// read back the same, looks and pictures' codes included, and a copy of all of it must be the same as well.

#include "fuzzing.h"
#include "richtext/dump.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"

namespace {

template <typename Text>
void check(Text rtf)
{
    RichDocument document;
    (void)readRtf(rtf, document);
    RichDocument again;
    require(readRtf(QByteArrayView(writeRtf(document)), again).isOk());
    const QString seen = dump(document);
    require(dump(again) == seen && again.plainText() == document.plainText());
    require(dump(document.copy(0, document.length())) == seen);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const QByteArrayView bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    check(bytes);
    check(QStringView(QString::fromUtf8(bytes)));
    return 0;
}
