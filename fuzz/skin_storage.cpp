// A skin's archive: whatever comes in is opened and asked for everything, or refused with a reason.

#include "skin_asking.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    askEverything(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    return 0;
}
