#include "panel/files/text_file.h"

#include "system/translated_text.h"

#include <QtCore/QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

namespace kx
{

namespace
{

const char* kindFault(mode_t mode)
{
    if (S_ISDIR(mode))
        return QT_TRANSLATE_NOOP("kx", "is a folder, not a file");
    return S_ISFIFO(mode) ? QT_TRANSLATE_NOOP("kx", "is a pipe; write its text into a file first")
                          : nullptr;
}

QString systemFault()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool readAll(QFile* file, QByteArray* content, QString* fault)
{
    *content = file->read(LARGEST_TEXT_FILE + 1);
    if (file->error() != QFileDevice::NoError)
        *fault = file->errorString();
    else if (content->size() > LARGEST_TEXT_FILE)
        *fault = Text::tr("larger than %1 MiB, the most that such a file may have")
                     .arg(LARGEST_TEXT_FILE / 1024 / 1024);
    return fault->isEmpty();
}

bool read(const QString& path, QByteArray* content, QString* fault)
{
    // Else the opening of a pipe waits for its writer.
    const int descriptor =
        open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    QFile file;
    struct stat status = {};
    if (descriptor < 0
        || !file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered,
                      QFileDevice::AutoCloseHandle)
        || fstat(descriptor, &status) != 0) {
        *fault = systemFault();
        return false;
    }
    const char* const kind = kindFault(status.st_mode);
    if (kind)
        *fault = Text::tr(kind);
    return !kind && readAll(&file, content, fault);
}

} // namespace

bool readTextFile(const QString& path, QByteArray* content, QString* error)
{
    QString fault;
    if (read(path, content, &fault))
        return true;
    *error = QStringLiteral("%1: %2").arg(path, fault);
    return false;
}

} // namespace kx
