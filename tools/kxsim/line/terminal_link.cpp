#include "kxsim/line/terminal_link.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLockFile>

#include <cstdio>

namespace kxsim
{

namespace
{

const char* const TERMINALS = "/dev/pts/";

bool refuseLink(QString* error, const QString& path, const QString& reason)
{
    *error = QStringLiteral("--symlink %1: %2").arg(path, reason);
    return false;
}

bool isLeftOver(const QFileInfo& link, const QString& device, bool wasLocked)
{
    const QString target = link.symLinkTarget();
    // The number may have been given to another terminal since, or to this simulator's.
    return target.startsWith(QLatin1String(TERMINALS))
           && (wasLocked || target == device || !QFileInfo::exists(target));
}

} // namespace

TerminalLink::TerminalLink() = default;

TerminalLink::~TerminalLink()
{
    if (!m_path.isEmpty() && QFileInfo(m_path).symLinkTarget() == m_device)
        QFile::remove(m_path);
}

bool TerminalLink::lock(const QString& path, bool* wasLocked, QString* error)
{
    auto lock = std::make_unique<QLockFile>(path + QLatin1String(".lock"));
    lock->setStaleLockTime(0); // only the end of its program makes a lock stale
    qint64 process = 0;
    QString host;
    QString program;
    *wasLocked = lock->getLockInfo(&process, &host, &program);
    if (!lock->tryLock(0)) {
        const bool isHeld = lock->error() == QLockFile::LockFailedError;
        return refuseLink(error, path,
                          isHeld
                              ? QStringLiteral("a running kxsim (process %1) has this link; end it "
                                               "or name another link")
                                    .arg(process)
                              : QStringLiteral("cannot write %1.lock").arg(path));
    }
    m_lock = std::move(lock);
    return true;
}

bool TerminalLink::make(const QString& path, const QString& device, QString* error)
{
    const QFileInfo old(path);
    if (old.exists() && !old.isSymLink())
        return refuseLink(error, path, QStringLiteral("something that is no link has this name"));
    bool wasLocked = false;
    if (!lock(path, &wasLocked, error))
        return false;
    if (old.isSymLink() && !isLeftOver(old, device, wasLocked))
        return refuseLink(
            error, path,
            QStringLiteral("is a link to %1 that no kxsim left behind; remove it or name "
                           "another link")
                .arg(old.symLinkTarget()));
    if (old.isSymLink())
        QFile::remove(path);
    if (!QFile::link(device, path))
        return refuseLink(error, path, QStringLiteral("cannot make the link to %1").arg(device));
    m_path = path;
    m_device = device;
    return true;
}

bool TerminalLink::turnTo(const QString& device)
{
    if (m_path.isEmpty())
        return true;
    const QString fresh = m_path + QLatin1String(".new");
    if (QFileInfo(fresh).isSymLink())
        QFile::remove(fresh);
    m_device = device;
    return QFile::link(device, fresh)
           && std::rename(QFile::encodeName(fresh).constData(),
                          QFile::encodeName(m_path).constData())
                  == 0;
}

} // namespace kxsim
