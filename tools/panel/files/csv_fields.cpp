#include "panel/files/csv_fields.h"

#include "system/translated_text.h"

namespace kx
{

namespace
{

const char QUOTE = '"';

/// Walks along one line.
class CsvReader
{
public:
    CsvReader(const QByteArray& line, char separator) : m_line(line), m_separator(separator) {}

    bool atEnd() const { return m_position >= static_cast<int>(m_line.size()); }
    bool skipSeparator();
    bool takeField(CsvField* field, QString* error);

private:
    bool isBlank(char character) const;
    void skipBlanks();
    void takePlain(CsvField* field);
    bool takeQuoted(CsvField* field, QString* error);

    const QByteArray& m_line;
    char m_separator;
    int m_position = 0;
};

bool CsvReader::isBlank(char character) const
{
    return character != m_separator && (character == ' ' || character == '\t');
}

void CsvReader::skipBlanks()
{
    while (!atEnd() && isBlank(m_line.at(m_position)))
        ++m_position;
}

bool CsvReader::skipSeparator()
{
    if (atEnd() || m_line.at(m_position) != m_separator)
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
    for (; !atEnd() && m_line.at(m_position) != m_separator; ++m_position) {
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
        *error = Text::tr("a quote is not closed");
        return false;
    }
    field->length = ++m_position - field->begin;
    field->text = QString::fromUtf8(content);
    skipBlanks();
    if (!atEnd() && m_line.at(m_position) != m_separator) {
        *error = Text::tr("text follows a closing quote");
        return false;
    }
    return true;
}

} // namespace

QByteArray csvField(const QByteArray& text, char separator)
{
    const auto isBlank = [](char character) { return character == ' ' || character == '\t'; };
    const bool isPlain =
        text.isEmpty()
        || (!text.contains(separator) && !text.contains(QUOTE) && !text.startsWith('#')
            && !isBlank(text.front()) && !isBlank(text.back()));
    if (isPlain)
        return text;
    QByteArray content = text;
    content.replace(QUOTE, "\"\"");
    return QUOTE + content + QUOTE;
}

bool splitCsvFields(const QByteArray& line, char separator, QList<CsvField>* fields, QString* error)
{
    fields->clear();
    // Not a blank: a text that is put in place of an empty field goes in front of it.
    QByteArray content = line;
    while (content.endsWith('\r'))
        content.chop(1);
    CsvReader reader(content, separator);
    do {
        CsvField field;
        if (!reader.takeField(&field, error))
            return false;
        fields->append(field);
    } while (reader.skipSeparator());
    return true;
}

} // namespace kx
