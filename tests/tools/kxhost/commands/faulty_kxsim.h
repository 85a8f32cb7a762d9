#ifndef KX_TESTS_TOOLS_KXHOST_COMMANDS_FAULTY_KXSIM_H
#define KX_TESTS_TOOLS_KXHOST_COMMANDS_FAULTY_KXSIM_H

#include "tools/kxsim/kxsim_process.h"

#include <QtCore/QTemporaryDir>

namespace kx
{

/// A kxsim whose line has faults, with a link to its line, which outlives the line.
class FaultyKxsim
{
public:
    /// @param delay milliseconds by which late replies are late
    FaultyKxsim(const QString& fault, int delay, const QStringList& more = QStringList());

    QString line() const { return m_folder.filePath(QString::fromLatin1("line")); }
    QString ask(const QString& command) { return m_process.ask(command); }
    /// The count of that name in the answer to "faults"; -1: there is none.
    int count(const QString& name);

private:
    QTemporaryDir m_folder;
    KxsimProcess m_process;
};

} // namespace kx

#endif
