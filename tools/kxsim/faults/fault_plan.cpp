#include "kxsim/faults/fault_plan.h"

namespace kxsim
{

namespace
{

const char* const NAMES[FAULT_COUNT] = {
    "none",        "deaf",      "silence",       "delay",     "corrupt", "truncate", "extra-before",
    "extra-after", "duplicate", "other-station", "exception", "echo",    "close"};

// A sum of decimal fractions may miss 1 by a little.
const double HIGHEST_SUM = 1 + 1e-9;

const int LONGEST_DELAY = 60000; // milliseconds

bool refusePlan(QString* error, const QString& message)
{
    *error = message;
    return false;
}

double sumOf(const FaultPlan& plan)
{
    double sum = 0;
    for (const FaultChance& chance : plan.chances)
        sum += chance.probability;
    return sum;
}

} // namespace

QString faultName(Fault fault)
{
    return QString::fromLatin1(NAMES[static_cast<int>(fault)]);
}

QStringList faultNames()
{
    QStringList names;
    for (int kind = 1; kind < FAULT_COUNT; ++kind)
        names << faultName(static_cast<Fault>(kind));
    return names;
}

bool FaultPlan::holds(Fault fault) const
{
    for (const FaultChance& chance : chances) {
        if (chance.fault == fault && chance.probability > 0)
            return true;
    }
    return false;
}

bool addFault(const QString& text, FaultPlan* plan, QString* error)
{
    const QString name = text.section(QLatin1Char(':'), 0, 0);
    bool isNumber = false;
    const double probability = text.section(QLatin1Char(':'), 1).toDouble(&isNumber);
    // Written so that what is not a number fails, too.
    if (!isNumber || !(probability >= 0 && probability <= 1))
        return refusePlan(error,
                          QStringLiteral("--fault %1: write KIND:PROBABILITY with a probability "
                                         "from 0 to 1, such as silence:0.01")
                              .arg(text));
    const QStringList names = faultNames();
    const int kind = static_cast<int>(names.indexOf(name)) + 1;
    if (name == QLatin1String("all")) {
        for (int each = 1; each < FAULT_COUNT; ++each)
            plan->chances.append({static_cast<Fault>(each), probability / (FAULT_COUNT - 1)});
    } else if (kind > 0) {
        plan->chances.append({static_cast<Fault>(kind), probability});
    } else {
        return refusePlan(error, QStringLiteral("--fault %1: '%2' is none of %3, all")
                                     .arg(text, name, names.join(QStringLiteral(", "))));
    }
    return sumOf(*plan) <= HIGHEST_SUM
           || refusePlan(
               error,
               QStringLiteral("--fault %1: the probabilities add up to more than 1").arg(text));
}

bool parseFaultSeed(const QString& text, FaultPlan* plan, QString* error)
{
    bool isNumber = false;
    plan->seed = text.toUInt(&isNumber);
    return isNumber
           || refusePlan(
               error, QStringLiteral("--fault-seed %1: must be a whole number from 0 to 4294967295")
                          .arg(text));
}

bool parseFaultDelay(const QString& text, FaultPlan* plan, QString* error)
{
    plan->delay = text.toInt();
    return (plan->delay >= 1 && plan->delay <= LONGEST_DELAY)
           || refusePlan(
               error, QStringLiteral(
                          "--fault-delay %1: must be a whole number of milliseconds from 1 to %2")
                          .arg(text, QString::number(LONGEST_DELAY)));
}

} // namespace kxsim
