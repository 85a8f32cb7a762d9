#ifndef KX_KXHOST_SEQUENCE_SEQUENCE_VIEW_H
#define KX_KXHOST_SEQUENCE_SEQUENCE_VIEW_H

#include "panel/sequence/sequence.h"
#include "panel/sequence/step_result.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtCore/QTimer>

namespace kx
{

/// What a sequence prints: a row for each step when it has ended, and on a terminal, below that,
/// the step at work with its time and the value last read. What failed is told on standard error,
/// too.
class SequenceView : public QObject
{
    Q_OBJECT

public:
    SequenceView(const QString& file, const Sequence& sequence, bool json);

    /// All steps with what they are about, none of them done.
    void showSteps() const;

    void onStarted(int step);
    void onValue(int step, const QString& shown);
    void onFinished(const StepResult& result);
    void showSummary(bool isInterrupted);

private:
    void draw();
    void clear() const;
    void printStep(const StepResult& result) const;

    QString m_file;
    Sequence m_sequence;
    bool m_json;
    bool m_isLive;
    int m_step = 0; ///< at work
    QString m_shown;
    QElapsedTimer m_time; ///< of the step
    QElapsedTimer m_total;
    QTimer m_redraw;
    int m_counts[3] = {0, 0, 0}; ///< by StepOutcome
};

} // namespace kx

#endif
