#include "panel/files/replaced_file.h"

#include <QtCore/QFile>
#include <QtCore/QSaveFile>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace kx
{

namespace
{

bool failWith(const QFileDevice& file, QString* error)
{
    *error = QStringLiteral("%1: %2").arg(file.fileName(), file.errorString());
    return false;
}

// Some disks are only found full here; others cannot be asked, which does no harm.
bool syncToDisk(const QSaveFile& file, QString* error)
{
    if (::fsync(file.handle()) == 0 || (errno != ENOSPC && errno != EDQUOT && errno != EIO))
        return true;
    *error =
        QStringLiteral("%1: %2").arg(file.fileName(), QString::fromLocal8Bit(std::strerror(errno)));
    return false;
}

// A disk that fills up takes a part first; the next attempt then tells why.
bool writeAll(const QByteArray& text, QSaveFile* file)
{
    qint64 written = 0;
    while (written < text.size()) {
        const qint64 count = file->write(text.constData() + written, text.size() - written);
        if (count <= 0)
            return false;
        written += count;
    }
    return true;
}

// As far as the process may: the owner is root's to give, the group a member's. The mode
// is QSaveFile's matter.
void keepOwner(const QString& path, int handle)
{
    struct stat before = {};
    if (::stat(QFile::encodeName(path).constData(), &before) != 0)
        return;
    if (::fchown(handle, before.st_uid, before.st_gid) != 0
        && ::fchown(handle, static_cast<uid_t>(-1), before.st_gid) != 0)
        return; // neither, which is no reason to lose the values
}

} // namespace

bool canReplaceFile(const QString& path, QString* error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return failWith(file, error);
    file.cancelWriting();
    return true;
}

bool replaceFile(const QString& path, const QByteArray& text, QString* error)
{
    QSaveFile file(path);
    // Unbuffered, since commit() hides it when what is left in the buffer does not fit.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !writeAll(text, &file))
        return failWith(file, error);
    keepOwner(path, file.handle());
    return syncToDisk(file, error) && (file.commit() || failWith(file, error));
}

} // namespace kx
