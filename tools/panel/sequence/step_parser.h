#ifndef KX_PANEL_SEQUENCE_STEP_PARSER_H
#define KX_PANEL_SEQUENCE_STEP_PARSER_H

#include "panel/sequence/line_reader.h"
#include "panel/sequence/sequence_text.h"

#include <QtCore/QHash>

namespace kx
{

/// Reads one step of a sequence.
class StepParser
{
public:
    /// @param tags by name; must outlive the parser, as the context
    StepParser(const QHash<QString, Tag>* tags, const SequenceContext& context,
               const QString& line);

    /// False when the line is no step; see fault().
    bool parse(Step* step);

    const QString& fault() const { return m_fault; }
    int column() const { return m_column; }

private:
    bool parseWrite(Step* step);
    bool parseWait(Step* step);
    bool parseExpect(Step* step);
    bool parseTime(const char* what, qint64* microseconds);
    bool parseOperand(Tag* tag);
    bool findOperand(const LinePart& name, Tag* tag);
    bool parseCondition(const Tag& tag, Condition* condition);
    bool parseComparison(const Tag& tag, Condition* condition);
    bool parseTolerance(const Tag& tag, const LinePart& middle, Condition* condition);
    bool parseRange(const LinePart& first, Condition* condition);
    bool takeValue(LinePart* value);
    bool takeNumber(const LinePart& value, Decimal* number);
    bool isAtEnd();
    bool fail(int column, const QString& fault);

    const QHash<QString, Tag>* m_tags;
    const SequenceContext& m_context;
    LineReader m_reader;
    QString m_fault;
    int m_column = 0;
};

} // namespace kx

#endif
