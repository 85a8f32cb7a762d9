#include "kxhost/sequence/step_rows.h"

#include "panel/values/value_address.h"

namespace kx
{

namespace
{

const int OUTCOME_WIDTH = 7;         // of "skipped"
const int SECONDS_WIDTH = 9;         // of 99999.999
const double STEP_SECOND = 1e3;      // milliseconds
const double STEP_MILLISECOND = 1e3; // microseconds
const int MILLISECOND_PLACES = 3;    // of seconds

QString secondsText(double seconds, int places)
{
    return QStringLiteral("%1 s").arg(seconds, SECONDS_WIDTH, 'f', places);
}

QString row(const QString& outcome, const QString& seconds, const Step& step, const QString& shown)
{
    const QString text = QStringLiteral("%1 %2  line %3: %4")
                             .arg(outcome, -OUTCOME_WIDTH)
                             .arg(seconds, SECONDS_WIDTH + 2)
                             .arg(step.line)
                             .arg(step.text);
    return shown.isEmpty() ? text : QStringLiteral("%1  (%2)").arg(text, shown);
}

} // namespace

QString outcomeName(StepOutcome outcome)
{
    switch (outcome) {
    case StepOutcome::Passed:
        return QStringLiteral("passed");
    case StepOutcome::Failed:
        return QStringLiteral("failed");
    default:
        return QStringLiteral("skipped");
    }
}

QString stepRow(const Step& step, const StepResult& result)
{
    const double seconds =
        static_cast<double>(result.microseconds) / STEP_MILLISECOND / STEP_SECOND;
    const bool isSkipped = result.outcome == StepOutcome::Skipped;
    return row(outcomeName(result.outcome),
               isSkipped ? QString() : secondsText(seconds, MILLISECOND_PLACES), step,
               result.shown);
}

QString workingRow(const Step& step, qint64 milliseconds, const QString& shown)
{
    const double seconds = static_cast<double>(milliseconds) / STEP_SECOND;
    return row(QStringLiteral("..."), secondsText(seconds, 1), step, shown);
}

QString plannedRow(const Step& step)
{
    const QString text = QStringLiteral("line %1: %2").arg(step.line).arg(step.text);
    return step.kind == StepKind::Pause ? text
                                        : QStringLiteral("%1  %2").arg(text, operandText(step.tag));
}

QJsonObject stepJson(const Step& step)
{
    QJsonObject json;
    json[QLatin1String("event")] = QStringLiteral("step");
    json[QLatin1String("line")] = step.line;
    json[QLatin1String("step")] = step.text;
    if (step.kind == StepKind::Pause)
        return json;
    AddressRange range = step.tag.range;
    json[QLatin1String("station")] = range.station;
    range.station = -1;
    json[QLatin1String("address")] = valueAddressText(range, step.tag.format);
    if (!step.tag.name.isEmpty())
        json[QLatin1String("name")] = step.tag.name;
    return json;
}

QJsonObject resultJson(const Step& step, const StepResult& result)
{
    QJsonObject json = stepJson(step);
    json[QLatin1String("outcome")] = outcomeName(result.outcome);
    json[QLatin1String("milliseconds")] =
        static_cast<double>(result.microseconds) / STEP_MILLISECOND;
    if (!result.value.isUndefined())
        json[QLatin1String("value")] = result.value;
    if (!result.reason.isEmpty())
        json[QLatin1String("failure")] = result.reason;
    return json;
}

} // namespace kx
