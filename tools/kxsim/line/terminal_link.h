/// A link by which hosts find a pseudo-terminal, since its own name differs from run to
/// run.
#ifndef KX_KXSIM_LINE_TERMINAL_LINK_H
#define KX_KXSIM_LINE_TERMINAL_LINK_H

#include <QtCore/QString>

#include <memory>

class QLockFile;

namespace kxsim
{

class TerminalLink
{
public:
    TerminalLink();
    /// Removes the link and its lock.
    ~TerminalLink();
    TerminalLink(const TerminalLink&) = delete;
    TerminalLink& operator=(const TerminalLink&) = delete;

    /// Makes `path` a link to a device. A lock file beside it, PATH.lock, says that the
    /// link is in use; it stays behind when the program is killed. What is at the path
    /// is replaced only when it is a link that a dead simulator left: one to a
    /// pseudo-terminal that is gone or is now `device`, or with a lock whose program has
    /// ended. Once per object.
    /// @return false and one line in `*error`, which says what is in the way
    bool make(const QString& path, const QString& device, QString* error);

    /// Turns the link to another device in one step; without a link nothing happens.
    bool turnTo(const QString& device);

private:
    bool lock(const QString& path, bool* wasLocked, QString* error);

    QString m_path; ///< empty: no link
    QString m_device;
    std::unique_ptr<QLockFile> m_lock;
};

} // namespace kxsim

#endif
