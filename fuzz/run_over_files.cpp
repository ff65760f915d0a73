// Stands in for the fuzzer where there is none: STEP FOLDER runs the target over each file of the folder, and
// over beginnings of it, each as many bytes longer as the step says.

#include <QByteArray>
#include <QDirIterator>
#include <QFile>

#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size);

namespace {

void run(QByteArrayView bytes)
{
    const QByteArray own = bytes.toByteArray(); // so that reading beyond is seen
    LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char *>(own.constData()),
                           static_cast<std::size_t>(own.size()));
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3) {
        return 2;
    }
    const int step = qMax(QByteArray(argv[1]).toInt(), 1);
    int files = 0;
    QDirIterator entries(QString::fromLocal8Bit(argv[2]), QDir::Files);
    while (entries.hasNext()) {
        QFile file(entries.next());
        if (!file.open(QIODevice::ReadOnly)) {
            continue;
        }
        const QByteArray bytes = file.readAll();
        for (qsizetype size = 0; size < bytes.size(); size += step) {
            run(QByteArrayView(bytes).first(size));
        }
        run(bytes);
        ++files;
    }
    std::printf("%d files\n", files);
    return files > 0 ? 0 : 1;
}
