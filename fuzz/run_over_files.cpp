// Stands in for the fuzzer where there is none: runs the target over each file of the folders that are named,
// and over each beginning of it.

#include <QByteArray>
#include <QDirIterator>
#include <QFile>

#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size);

int main(int argc, char *argv[])
{
    int files = 0;
    for (int folder = 1; folder < argc; ++folder) {
        QDirIterator entries(QString::fromLocal8Bit(argv[folder]), QDir::Files);
        while (entries.hasNext()) {
            QFile file(entries.next());
            if (!file.open(QIODevice::ReadOnly)) {
                continue;
            }
            const QByteArray bytes = file.readAll();
            for (qsizetype size = 0; size <= bytes.size(); ++size) {
                const QByteArray beginning = bytes.first(size); // of its own, so that reading beyond is seen
                LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char *>(beginning.constData()),
                                       static_cast<std::size_t>(size));
            }
            ++files;
        }
    }
    std::printf("%d files\n", files);
    return files > 0 ? 0 : 1;
}
