/// Which faults a simulated line has, and how often.
#ifndef KX_KXSIM_FAULTS_FAULT_PLAN_H
#define KX_KXSIM_FAULTS_FAULT_PLAN_H

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace kxsim
{

enum class Fault {
    None,
    Deaf,         ///< the request is not heard: not carried out, no reply
    Silence,      ///< carried out, no reply
    Delay,        ///< the reply comes late
    Corrupt,      ///< one byte is another
    Truncate,     ///< the reply ends early
    ExtraBefore,  ///< noise, then the reply
    ExtraAfter,   ///< the reply, then noise
    Duplicate,    ///< the reply twice
    OtherStation, ///< the same reply, from another station
    Exception,    ///< refused as busy (exception 6) and not carried out
    Echo,         ///< the request comes back, then the reply
    Close         ///< no reply; the line is closed and opened again
};

const int FAULT_COUNT = 13; ///< with None

/// As in options and counts: "silence", "extra-before".
QString faultName(Fault fault);

struct FaultChance {
    Fault fault;
    double probability; ///< per request
};

struct FaultPlan {
    QList<FaultChance> chances; ///< their sum is at most 1; empty: a sound line
    quint32 seed = 1;
    int delay = 1500; ///< milliseconds by which Fault::Delay holds a reply back

    bool holds(Fault fault) const;
};

/// Adds KIND:PROBABILITY, such as "silence:0.01", or "all:0.1" for all kinds in equal
/// shares. False and one line in `*error` when the kind is unknown, the probability is
/// not from 0 to 1, or the plan's sum exceeds 1.
bool addFault(const QString& text, FaultPlan* plan, QString* error);

/// The value of --fault-seed or --fault-delay; false and one line in `*error` when it
/// is no number, or less than 0 or 1.
bool parseFaultSeed(const QString& text, FaultPlan* plan, QString* error);
bool parseFaultDelay(const QString& text, FaultPlan* plan, QString* error);

/// "deaf, silence, ..., close": for help and errors.
QStringList faultNames();

} // namespace kxsim

#endif
