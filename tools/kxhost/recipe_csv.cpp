#include "kxhost/recipe_csv.h"

namespace
{

const char QUOTE = '"';
const char COMMA = ',';

bool isBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\r';
}

/// Walks along one line.
class CsvReader
{
public:
    explicit CsvReader(const QByteArray& line) : m_line(line) {}

    bool atEnd() const { return m_position >= static_cast<int>(m_line.size()); }
    bool skipComma();
    bool takeField(CsvField* field, QString* error);

private:
    void skipBlanks();
    void takePlain(CsvField* field);
    bool takeQuoted(CsvField* field, QString* error);

    const QByteArray& m_line;
    int m_position = 0;
};

void CsvReader::skipBlanks()
{
    while (!atEnd() && isBlank(m_line.at(m_position)))
        ++m_position;
}

bool CsvReader::skipComma()
{
    if (atEnd() || m_line.at(m_position) != COMMA)
        return false;
    ++m_position;
    return true;
}

bool CsvReader::takeField(CsvField* field, QString* error)
{
    skipBlanks();
    field->begin = m_position;
    if (!atEnd() && m_line.at(m_position) == QUOTE)
        return takeQuoted(field, error);
    takePlain(field);
    return true;
}

void CsvReader::takePlain(CsvField* field)
{
    int end = m_position;
    for (; !atEnd() && m_line.at(m_position) != COMMA; ++m_position) {
        if (!isBlank(m_line.at(m_position)))
            end = m_position + 1;
    }
    field->length = end - field->begin;
    field->text = QString::fromUtf8(m_line.mid(field->begin, field->length));
}

bool CsvReader::takeQuoted(CsvField* field, QString* error)
{
    QByteArray content;
    for (++m_position; !atEnd(); ++m_position) {
        if (m_line.at(m_position) != QUOTE) {
            content += m_line.at(m_position);
        } else if (m_line.mid(m_position, 2) == "\"\"") {
            content += QUOTE;
            ++m_position;
        } else {
            break;
        }
    }
    if (atEnd()) {
        *error = QStringLiteral("a quote is not closed");
        return false;
    }
    field->length = ++m_position - field->begin;
    field->text = QString::fromUtf8(content);
    skipBlanks();
    if (!atEnd() && m_line.at(m_position) != COMMA) {
        *error = QStringLiteral("text follows a closing quote");
        return false;
    }
    return true;
}

} // namespace

bool splitCsvLine(const QByteArray& line, QList<CsvField>* fields, QString* error)
{
    fields->clear();
    CsvReader reader(line);
    do {
        CsvField field;
        if (!reader.takeField(&field, error))
            return false;
        fields->append(field);
    } while (reader.skipComma());
    return true;
}
