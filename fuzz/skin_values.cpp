// A skin's tables, in an archive with a few pictures.

#include "platform/skin_archive.h"
#include "skin_asking.h"

#include <QBuffer>

namespace {

QByteArray picture(int side, const char *format)
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format);
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    static const std::vector<SkinContent> pictures = {{QStringLiteral("a.png"), picture(1, "png")},
                                                      {QStringLiteral("a@2x.png"), picture(2, "png")},
                                                      {QStringLiteral("p/b.bmp"), picture(1, "bmp")},
                                                      {QStringLiteral("p/b@2x.bmp"), picture(1, "bmp")}};
    std::vector<SkinContent> contents = pictures;
    contents.push_back({QStringLiteral("skin.toml"),
                        QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size))});
    askEverything(skinArchive(std::move(contents)));
    return 0;
}
