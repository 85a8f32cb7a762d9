#include "system/port_holders.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <sys/stat.h>

namespace kx
{

namespace
{

const char* const DEVICES = "/dev/";

/// 0 when it is no character device, or gone.
quint64 deviceNumber(const QString& path)
{
    struct stat status = {};
    const bool isDevice =
        stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISCHR(status.st_mode);
    return isDevice ? status.st_rdev : 0;
}

QString firstLine(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.readLine()).trimmed()
                                          : QString();
}

bool hasProcess(const QList<PortHolder>& holders, qint64 process)
{
    return std::any_of(holders.begin(), holders.end(),
                       [process](const PortHolder& holder) { return holder.process == process; });
}

} // namespace

qint64 lockingProcess(const QString& device, const QString& locks)
{
    QString name = QFileInfo(device).canonicalFilePath();
    if (name.startsWith(QLatin1String(DEVICES)))
        name = name.mid(static_cast<int>(qstrlen(DEVICES)));
    name.replace(QLatin1Char('/'), QLatin1Char('_'));
    return firstLine(locks + QLatin1String("/LCK..") + name).toLongLong();
}

OpenDevices::OpenDevices(const QString& processes, const QString& locks) : m_locks(locks)
{
    for (const QString& name : QDir(processes).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString folder = processes + QLatin1Char('/') + name;
        const qint64 process = name.toLongLong();
        if (process > 0)
            lookInto(folder, {firstLine(folder + QLatin1String("/comm")), process});
    }
    const auto byProcess = [](const Open& one, const Open& other) {
        return one.holder.process < other.holder.process;
    };
    std::sort(m_open.begin(), m_open.end(), byProcess);
}

void OpenDevices::lookInto(const QString& folder, const PortHolder& holder)
{
    const QString files = folder + QLatin1String("/fd");
    DIR* const opened = opendir(QFile::encodeName(files).constData());
    if (!opened) {
        if (errno != ENOENT && errno != ESRCH) // the process has ended
            m_unseen << holder;
        return;
    }
    while (const dirent* const entry = readdir(opened)) {
        const quint64 device =
            deviceNumber(files + QLatin1Char('/') + QString::fromLatin1(entry->d_name));
        if (device != 0)
            m_open << Open{device, holder};
    }
    closedir(opened);
}

QList<PortHolder> OpenDevices::holdersOf(const QString& device) const
{
    QList<PortHolder> holders;
    const quint64 number = deviceNumber(device);
    for (const Open& open : m_open) {
        if (number != 0 && open.device == number && !hasProcess(holders, open.holder.process))
            holders << open.holder;
    }
    addLock(device, &holders);
    return holders;
}

// A lock may have stayed behind; of a program that can be looked into, its files tell more.
void OpenDevices::addLock(const QString& device, QList<PortHolder>* holders) const
{
    const qint64 process = lockingProcess(device, m_locks);
    for (const PortHolder& unseen : m_unseen) {
        if (unseen.process == process && !hasProcess(*holders, process))
            *holders << unseen;
    }
}

} // namespace kx
