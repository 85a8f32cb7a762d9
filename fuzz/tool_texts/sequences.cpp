#include "panel/sequence/sequence_text.h"
#include "support/require.h"
#include "tool_texts/texts.h"

#include <QtCore/QStringList>

using namespace kx;

namespace
{

bool loadSomeTags(const QString& file, QList<Tag>* tags, QString* error)
{
    return parseTags("name,address,format,scale\n"
                     "pump,Y10,,\n"
                     "pressure,D100,s16,0.1\n"
                     "level,D102,float,\n"
                     "M1,Y7,,\n",
                     file, tags, error);
}

void checkStep(const Step& step)
{
    require(step.line > 0 && !step.text.isEmpty(), "a step has a line");
    if (step.kind == StepKind::Wait || step.kind == StepKind::Pause)
        require(step.time > 0 && step.time <= 86400000000, "a time is at most a day");
    if (step.kind == StepKind::Pause)
        return;
    checkRange(step.tag.range);
    require(step.tag.range.station != -1, "a step has a station");
    if (step.kind == StepKind::Write)
        require(step.values.size() == step.tag.range.values, "each address has a value");
    else
        require(step.condition.comparison != Comparison::Within
                    || step.condition.low.compare(step.condition.high) <= 0,
                "a range is not turned round");
}

} // namespace

void readSequence(InputReader* input)
{
    SequenceContext context;
    context.loadTags = loadSomeTags;
    Sequence sequence;
    const auto parse = [&](const QByteArray& text, QString* error) {
        QStringList faults;
        for (const SequenceFault& fault : parseSequence(text, context, &sequence))
            faults << faultText(QStringLiteral("filling.kxs"), fault);
        *error = faults.join(QStringLiteral("; "));
        return faults.isEmpty();
    };
    if (!takes(parse, "tags tags.csv\n" + input->rest()))
        return;
    require(!sequence.steps.isEmpty(), "a sequence has a step");
    require(sequence.mainSteps >= 0 && sequence.mainSteps <= sequence.steps.size(),
            "what is done in the end is a part of the steps");
    for (const Step& step : sequence.steps)
        checkStep(step);
}
