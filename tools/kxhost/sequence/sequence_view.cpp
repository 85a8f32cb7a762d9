#include "kxhost/sequence/sequence_view.h"

#include "kxhost/sequence/step_rows.h"
#include "kxhost/terminal/cell_width.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "panel/text/counted.h"
#include "system/printable_text.h"

namespace kx
{

namespace
{

const int SEQUENCE_REDRAW_INTERVAL = 200; // milliseconds
const int LIVE_CELLS = 79;                // on every terminal one row
const double RUN_SECOND = 1e3;            // milliseconds

} // namespace

SequenceView::SequenceView(const QString& file, const Sequence& sequence, bool json)
    : m_file(file),
      m_sequence(sequence),
      m_json(json),
      m_isLive(!json && isStandardOutputTerminal())
{
    m_total.start();
    connect(&m_redraw, &QTimer::timeout, this, &SequenceView::draw);
}

void SequenceView::showSteps() const
{
    const int inTheEnd = static_cast<int>(m_sequence.steps.size()) - m_sequence.mainSteps;
    for (const Step& step : m_sequence.steps) {
        if (m_json)
            printJson(stepJson(step));
        else
            say(plannedRow(step));
    }
    if (!m_json)
        say(QStringLiteral("%1: %2, %3 of them in the end")
                .arg(m_file, counted(m_sequence.steps.size(), "step", "steps"),
                     QString::number(inTheEnd)));
}

void SequenceView::onStarted(int step)
{
    m_step = step;
    m_shown.clear();
    m_time.start();
    if (!m_isLive)
        return;
    draw();
    m_redraw.start(SEQUENCE_REDRAW_INTERVAL);
}

void SequenceView::onValue(int, const QString& shown)
{
    m_shown = shown;
}

void SequenceView::draw()
{
    const QString row = workingRow(m_sequence.steps.at(m_step), m_time.elapsed(), m_shown);
    print(QLatin1String("\r\033[K") + leftCells(printableText(row), LIVE_CELLS));
}

void SequenceView::clear() const
{
    if (m_isLive)
        print(QLatin1String("\r\033[K"));
}

void SequenceView::onFinished(const StepResult& result)
{
    m_redraw.stop();
    ++m_counts[static_cast<int>(result.outcome)];
    clear();
    printStep(result);
}

void SequenceView::printStep(const StepResult& result) const
{
    const Step& step = m_sequence.steps.at(result.step);
    if (m_json)
        printJson(resultJson(step, result));
    else
        say(stepRow(step, result));
    if (result.outcome == StepOutcome::Failed)
        complain(QStringLiteral("%1:%2: %3: %4")
                     .arg(m_file, QString::number(step.line), step.text, result.reason),
                 EXIT_DEVICE_FAILED);
}

void SequenceView::showSummary(bool isInterrupted)
{
    const int passed = m_counts[static_cast<int>(StepOutcome::Passed)];
    const int failed = m_counts[static_cast<int>(StepOutcome::Failed)];
    const int skipped = m_counts[static_cast<int>(StepOutcome::Skipped)];
    if (!m_json)
        return say(QStringLiteral("%1 of %2 passed, %3 failed, %4 skipped, %5 s%6")
                       .arg(passed)
                       .arg(counted(m_sequence.steps.size(), "step", "steps"))
                       .arg(failed)
                       .arg(skipped)
                       .arg(static_cast<double>(m_total.elapsed()) / RUN_SECOND, 0, 'f', 1)
                       .arg(isInterrupted ? QStringLiteral("; interrupted") : QString()));
    printJson({{QStringLiteral("event"), QStringLiteral("summary")},
               {QStringLiteral("steps"), static_cast<int>(m_sequence.steps.size())},
               {QStringLiteral("passed"), passed},
               {QStringLiteral("failed"), failed},
               {QStringLiteral("skipped"), skipped},
               {QStringLiteral("milliseconds"), m_total.elapsed()},
               {QStringLiteral("interrupted"), isInterrupted}});
}

} // namespace kx
