#include "faulty_kxsim.h"

namespace kx
{

FaultyKxsim::FaultyKxsim(const QString& fault, int delay, const QStringList& more)
    : m_process(QStringList{QStringLiteral("--still"), QStringLiteral("--symlink"), line(),
                            QStringLiteral("--fault"), fault, QStringLiteral("--fault-delay"),
                            QString::number(delay)}
                + more)
{
}

int FaultyKxsim::count(const QString& name)
{
    for (const QString& word : ask(QStringLiteral("faults")).split(QLatin1Char(' '))) {
        if (word.startsWith(name + QLatin1Char('=')))
            return word.section(QLatin1Char('='), 1).toInt();
    }
    return -1;
}

} // namespace kx
