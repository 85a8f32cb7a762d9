// Feeds files, or all files of folders, to a fuzz target that was built without a
// fuzzer: replay PATH...

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace
{

bool feed(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(file.errorString()));
        return false;
    }
    const QByteArray content = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(content.constData()),
                           static_cast<std::size_t>(content.size()));
    return true;
}

QStringList filesOf(const QString& path)
{
    if (!QFileInfo(path).isDir())
        return {path};
    QStringList files;
    QDirIterator folder(path, QDir::Files, QDirIterator::Subdirectories);
    while (folder.hasNext())
        files << folder.next();
    files.sort();
    return files;
}

} // namespace

int main(int argc, char* argv[])
{
    int fed = 0;
    for (int i = 1; i < argc; ++i) {
        for (const QString& path : filesOf(QFile::decodeName(argv[i]))) {
            if (!feed(path))
                return 1;
            ++fed;
        }
    }
    std::printf("%d inputs replayed\n", fed);
    // An empty corpus would make a test that cannot fail.
    return fed > 0 ? 0 : 1;
}
