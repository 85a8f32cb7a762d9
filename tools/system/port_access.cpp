#include "system/port_access.h"

#include "system/translated_text.h"

#include <QtCore/QFile>

#include <cerrno>
#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace kx
{

namespace
{

const size_t LONGEST_ENTRY = 65536; // bytes of a group with all its members
const mode_t GROUP_READS_AND_WRITES = S_IRGRP | S_IWGRP;

/// Its number when the system knows no name.
QString groupName(gid_t number)
{
    std::vector<char> buffer(LONGEST_ENTRY);
    group entry = {};
    group* found = nullptr;
    getgrgid_r(number, &entry, buffer.data(), buffer.size(), &found);
    return found ? QString::fromLocal8Bit(found->gr_name) : QString::number(number);
}

QString userName(uid_t number)
{
    std::vector<char> buffer(LONGEST_ENTRY);
    passwd entry = {};
    passwd* found = nullptr;
    getpwuid_r(number, &entry, buffer.data(), buffer.size(), &found);
    return found ? QString::fromLocal8Bit(found->pw_name) : QString::number(number);
}

} // namespace

QString accessAdvice(const QString& device)
{
    const QByteArray path = QFile::encodeName(device);
    const bool isDenied =
        faccessat(AT_FDCWD, path.constData(), R_OK | W_OK, AT_EACCESS) != 0 && errno == EACCES;
    struct stat status = {};
    if (!isDenied || stat(path.constData(), &status) != 0)
        return QString();
    // Nobody should join the group root, and some groups may do no more than others.
    if (status.st_gid == 0 || (status.st_mode & GROUP_READS_AND_WRITES) != GROUP_READS_AND_WRITES)
        return Text::tr("; only its owner %1 may open it").arg(userName(status.st_uid));
    return Text::tr("; it is for members of the group %1: sudo usermod -aG %1 $USER, then "
                    "log in again")
        .arg(groupName(status.st_gid));
}

} // namespace kx
