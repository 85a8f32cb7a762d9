#include "sequence_fixture.h"

#include "panel/values/value_address.h"

#include <QtTest/QTest>

namespace kx
{

namespace
{

Tag tag(const char* name, const char* address)
{
    Tag tag;
    tag.name = QString::fromLatin1(name);
    QString fault;
    if (!parseValueAddress(QString::fromLatin1(address), &tag.range, &tag.format, &fault))
        qFatal("%s: %s", address, qPrintable(fault));
    return tag;
}

} // namespace

QList<Tag> someTags()
{
    return {tag("pump", "Y10"),
            tag("Pump running", "M5@2"),
            tag("pressure", "D100/u16*0.1,unit=bar"),
            tag("level", "D7"),
            tag("recipe", "D200:4"),
            tag("M1", "Y7"),
            tag("serial", "D300/ascii:4")};
}

Sequence sequenceOf(const QByteArray& text)
{
    SequenceContext context;
    context.tags = someTags();
    Sequence sequence;
    const QList<SequenceFault> faults = parseSequence(text, context, &sequence);
    for (const SequenceFault& fault : faults)
        qFatal("%s", qPrintable(faultText(QStringLiteral("sequence"), fault)));
    return sequence;
}

} // namespace kx
