#include "kxpanel/tags/cell_table.h"

#include <QtCore/QCoreApplication>

namespace kxpanel
{

namespace
{

const QLatin1Char TAB('\t');
const QLatin1Char NEWLINE('\n');
const QLatin1Char RETURN('\r');
const QLatin1Char QUOTE('"');

bool isLineEnd(QChar character)
{
    return character == NEWLINE || character == RETURN;
}

QString cellText(QString text)
{
    const bool isPlain = !text.contains(TAB) && !text.contains(NEWLINE) && !text.contains(RETURN)
                         && !text.contains(QUOTE) && text == text.trimmed()
                         && !text.startsWith(QLatin1Char('#'));
    if (isPlain)
        return text;
    return QUOTE + text.replace(QString(QUOTE), QStringLiteral("\"\"")) + QUOTE;
}

/// Walks along the text, cell by cell.
class CellReader
{
public:
    explicit CellReader(const QString& text) : m_text(text) {}

    bool atEnd() const { return m_position >= static_cast<int>(m_text.size()); }
    /// False when a quote is not closed.
    bool takeCell(QString* cell);
    /// Steps over what ends a cell; whether it ends its row, too.
    bool endsRow();

private:
    bool atCellEnd() const
    {
        return atEnd() || m_text.at(m_position) == TAB || isLineEnd(m_text.at(m_position));
    }
    bool takeQuoted(QString* cell);
    QString takePlain();

    const QString& m_text;
    int m_position = 0;
};

bool CellReader::takeCell(QString* cell)
{
    const int begin = m_position;
    if (atEnd() || m_text.at(m_position) != QUOTE) {
        *cell = takePlain();
        return true;
    }
    if (!takeQuoted(cell))
        return false;
    if (!atCellEnd()) { // the quotes are the text's own: "A" pump
        m_position = begin;
        *cell = takePlain();
    }
    return true;
}

bool CellReader::takeQuoted(QString* cell)
{
    cell->clear();
    for (++m_position; !atEnd(); ++m_position) {
        if (m_text.at(m_position) == QUOTE) {
            ++m_position;
            if (atEnd() || m_text.at(m_position) != QUOTE)
                return true;
        }
        *cell += m_text.at(m_position);
    }
    return false;
}

QString CellReader::takePlain()
{
    const int begin = m_position;
    while (!atCellEnd())
        ++m_position;
    return m_text.mid(begin, m_position - begin);
}

bool CellReader::endsRow()
{
    if (atEnd())
        return true;
    const QChar end = m_text.at(m_position++);
    if (end == RETURN && !atEnd() && m_text.at(m_position) == NEWLINE)
        ++m_position;
    return isLineEnd(end);
}

} // namespace

QString cellsText(const QStringList& cells)
{
    QStringList texts;
    for (const QString& cell : cells)
        texts << cellText(cell);
    return texts.join(TAB) + NEWLINE;
}

bool parseCells(const QString& text, QList<QStringList>* rows, QString* fault)
{
    rows->clear();
    CellReader reader(text);
    while (!reader.atEnd()) {
        QStringList cells;
        do {
            QString cell;
            if (!reader.takeCell(&cell)) {
                *fault =
                    QCoreApplication::translate("kxpanel::Cells", "row %1: a quote is not closed")
                        .arg(rows->size() + 1);
                return false;
            }
            cells << cell;
        } while (!reader.endsRow());
        *rows << cells;
    }
    return true;
}

QString rowFault(int row, const QString& reason)
{
    return QCoreApplication::translate("kxpanel::Cells", "row %1: %2")
        .arg(QString::number(row), reason);
}

QString inOneLine(QString text)
{
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control && character != TAB)
            character = QLatin1Char(' ');
    }
    return text;
}

} // namespace kxpanel
