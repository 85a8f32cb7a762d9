#include "panel/sequence/line_reader.h"

namespace kx
{

namespace
{

const QLatin1Char WORD_QUOTE('"');
const QLatin1Char COMMENT('#');

bool beginsComparison(QChar character)
{
    return character == QLatin1Char('=') || character == QLatin1Char('!')
           || character == QLatin1Char('<') || character == QLatin1Char('>');
}

} // namespace

bool LineReader::isBlank(int position) const
{
    return m_line.at(position).isSpace();
}

void LineReader::skipBlanks()
{
    while (m_position < m_line.size() && isBlank(m_position))
        ++m_position;
}

bool LineReader::atEnd()
{
    skipBlanks();
    if (m_position >= m_line.size())
        return true;
    return m_line.at(m_position) == COMMENT && (m_position == 0 || isBlank(m_position - 1));
}

int LineReader::column()
{
    skipBlanks();
    int column = 1;
    for (int i = 0; i < m_position; ++i)
        column += m_line.at(i).isLowSurrogate() ? 0 : 1;
    return column;
}

LinePart LineReader::takeWord()
{
    LinePart part;
    part.column = column();
    if (atEnd())
        return part;
    while (m_position < m_line.size() && !isBlank(m_position))
        part.text += m_line.at(m_position++);
    return part;
}

bool LineReader::takeName(LinePart* part, QString* fault)
{
    part->column = column();
    if (atEnd())
        return true;
    if (m_line.at(m_position) == WORD_QUOTE)
        return takeQuoted(part, fault);
    for (; m_position < m_line.size(); ++m_position) {
        const QChar character = m_line.at(m_position);
        if (isBlank(m_position) || beginsComparison(character))
            break;
        part->text += character;
    }
    return true;
}

bool LineReader::takeValue(LinePart* part, QString* fault)
{
    part->column = column();
    if (atEnd())
        return true;
    if (m_line.at(m_position) == WORD_QUOTE)
        return takeQuoted(part, fault);
    for (; m_position < m_line.size() && !endsValue(m_position); ++m_position)
        part->text += m_line.at(m_position);
    return true;
}

bool LineReader::endsValue(int position) const
{
    return isBlank(position) || m_line.at(position) == QLatin1Char(',') || begins(position, "..")
           || begins(position, "+-");
}

bool LineReader::takeQuoted(LinePart* part, QString* fault)
{
    part->isQuoted = true;
    for (++m_position; m_position < m_line.size(); ++m_position) {
        if (m_line.at(m_position) == WORD_QUOTE) {
            const bool isDoubled =
                m_position + 1 < m_line.size() && m_line.at(m_position + 1) == WORD_QUOTE;
            if (!isDoubled)
                break;
            ++m_position;
        }
        part->text += m_line.at(m_position);
    }
    if (m_position >= m_line.size()) {
        *fault = QStringLiteral("a quote is not closed");
        return false;
    }
    ++m_position;
    return true;
}

QString LineReader::takeComparison()
{
    for (const char* const comparison : {"!=", "<=", ">=", "=", "<", ">"}) {
        if (takes(comparison))
            return QLatin1String(comparison);
    }
    return QString();
}

bool LineReader::begins(int position, const char* text) const
{
    const QLatin1String wanted(text);
    return m_line.mid(position, static_cast<int>(wanted.size())) == wanted;
}

bool LineReader::takes(const char* text)
{
    if (atEnd() || !begins(m_position, text))
        return false;
    m_position += static_cast<int>(QLatin1String(text).size());
    return true;
}

LinePart LineReader::takeRest()
{
    LinePart part;
    part.column = column();
    const int begin = m_position;
    int end = begin;
    while (!atEnd()) {
        while (m_position < m_line.size() && !isBlank(m_position))
            ++m_position;
        end = m_position;
    }
    part.text = m_line.mid(begin, end - begin);
    return part;
}

} // namespace kx
