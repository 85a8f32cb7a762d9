#include "panel/sequence/sequence_text.h"

#include "panel/files/file_text.h"
#include "panel/sequence/step_parser.h"

namespace kx
{

namespace
{

class SequenceParser
{
public:
    SequenceParser(const SequenceContext& context, Sequence* sequence);

    void parse(const QByteArray& text);
    const QList<SequenceFault>& faults() const { return m_faults; }

private:
    void parseLine(const QByteArray& line);
    void parseTagsLine(LineReader* reader);
    void parseFinally(LineReader* reader, int column);
    void parseStep(const QString& line);
    void takeTags(const QList<Tag>& tags, int column);
    void fail(int column, const QString& fault);

    const SequenceContext& m_context;
    Sequence* m_sequence;
    QHash<QString, Tag> m_tags;
    QList<SequenceFault> m_faults;
    int m_line = 0;
    bool m_hasSteps = false; ///< right or wrong
    bool m_isFinally = false;
};

SequenceParser::SequenceParser(const SequenceContext& context, Sequence* sequence)
    : m_context(context), m_sequence(sequence)
{
    takeTags(context.tags, 0);
}

void SequenceParser::fail(int column, const QString& fault)
{
    m_faults << SequenceFault{m_line, column, fault};
}

void SequenceParser::parse(const QByteArray& text)
{
    QByteArray utf8;
    TextEncoding encoding = TextEncoding::Utf8;
    QString error;
    if (!decodeText(text, &utf8, &encoding, &error))
        return fail(0, error);
    for (const QByteArray& line : utf8.split('\n')) {
        ++m_line;
        parseLine(line);
    }
    if (!m_isFinally)
        m_sequence->mainSteps = static_cast<int>(m_sequence->steps.size());
    m_line = 0;
    if (!m_hasSteps && m_faults.isEmpty())
        fail(0, QStringLiteral("no steps; write lines such as expect D100 = 5"));
}

void SequenceParser::parseLine(const QByteArray& bytes)
{
    QString error;
    const QString line = QString::fromUtf8(bytes.constData(), static_cast<int>(bytes.size()));
    LineReader reader(line);
    if (reader.atEnd())
        return;
    if (!checkUtf8(bytes, &error))
        return fail(0, error);
    const LinePart word = reader.takeWord();
    if (word.text == QLatin1String("tags"))
        return parseTagsLine(&reader);
    if (word.text == QLatin1String("finally"))
        return parseFinally(&reader, word.column);
    m_hasSteps = true;
    parseStep(line);
}

void SequenceParser::parseTagsLine(LineReader* reader)
{
    const int column = reader->column();
    LinePart file = reader->takeRest();
    QString fault;
    if (file.text.startsWith(QLatin1Char('"'))) {
        LineReader quoted(file.text);
        file = LinePart();
        if (!quoted.takeName(&file, &fault) || !quoted.atEnd())
            return fail(column, QStringLiteral("the name of one tags file must follow"));
    }
    QList<Tag> tags;
    if (m_hasSteps || m_isFinally)
        fail(column, QStringLiteral("tags files stand before the first step"));
    else if (file.text.isEmpty())
        fail(column, QStringLiteral("the name of a tags file must follow"));
    else if (!m_context.loadTags(file.text, &tags, &fault))
        fail(column, fault);
    else
        takeTags(tags, column);
}

void SequenceParser::takeTags(const QList<Tag>& tags, int column)
{
    for (const Tag& tag : tags) {
        if (tag.name.isEmpty())
            continue;
        if (m_tags.contains(tag.name))
            return fail(column, QStringLiteral("two tags files name a tag '%1'").arg(tag.name));
        m_tags.insert(tag.name, tag);
    }
}

void SequenceParser::parseFinally(LineReader* reader, int column)
{
    if (m_isFinally)
        return fail(column, QStringLiteral("finally stands here for the second time"));
    if (!reader->atEnd())
        return fail(reader->column(), QStringLiteral("finally stands alone on its line"));
    m_isFinally = true;
    m_sequence->mainSteps = static_cast<int>(m_sequence->steps.size());
}

void SequenceParser::parseStep(const QString& line)
{
    LineReader whole(line);
    Step step;
    StepParser parser(&m_tags, m_context, line);
    if (!parser.parse(&step))
        return fail(parser.column(), parser.fault());
    step.line = m_line;
    step.text = whole.takeRest().text;
    m_sequence->steps << step;
}

} // namespace

QList<SequenceFault> parseSequence(const QByteArray& text, const SequenceContext& context,
                                   Sequence* sequence)
{
    *sequence = Sequence();
    SequenceParser parser(context, sequence);
    parser.parse(text);
    return parser.faults();
}

QString faultText(const QString& path, const SequenceFault& fault)
{
    QString place = path;
    for (const int number : {fault.line, fault.column}) {
        if (number > 0)
            place += QStringLiteral(":%1").arg(number);
    }
    return QStringLiteral("%1: %2").arg(place, fault.text);
}

} // namespace kx
