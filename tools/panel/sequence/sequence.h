/// A sequence: what is done with a machine, step by step, to see whether it works.
#ifndef KX_PANEL_SEQUENCE_SEQUENCE_H
#define KX_PANEL_SEQUENCE_SEQUENCE_H

#include "panel/sequence/condition.h"

#include <QtCore/QList>

namespace kx
{

enum class StepKind { Write, Wait, Expect, Pause };

struct Step {
    int line = 0; ///< of the file, from 1
    QString text; ///< the line without its comment
    StepKind kind = StepKind::Pause;
    Tag tag;              ///< but for Pause; its station is known
    QList<qint64> values; ///< of Write: one per address
    Condition condition;  ///< of Wait and Expect
    qint64 time = 0;      ///< microseconds: of Wait, at most; of Pause
};

struct Sequence {
    QList<Step> steps;
    /// So many steps end with the first that fails. Those behind them are done in the end, each of
    /// them, whatever became of the others.
    int mainSteps = 0;
};

} // namespace kx

#endif
