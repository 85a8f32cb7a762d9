#include "kxpanel/tags/cell_markup.h"

#include "kxpanel/tags/cell_table.h"

#include <QtCore/QMimeData>
#include <QtCore/QRegularExpression>
#include <QtCore/QVariant>

#include <algorithm>

namespace kxpanel
{

namespace
{

const QLatin1Char BLANK(' ');
const int EXACT_DIGITS = 15; // of a spreadsheet's numbers

bool isExactNumber(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("\\A-?(0|[1-9][0-9]*)(\\.[0-9]+)?\\z"));
    const auto isDigit = [](const QChar& character) { return character.isDigit(); };
    return number.match(text).hasMatch()
           && std::count_if(text.begin(), text.end(), isDigit) <= EXACT_DIGITS;
}

/// "0.00" of two decimals.
QString formatOf(const QString& number)
{
    const int decimals = static_cast<int>(number.section(QLatin1Char('.'), 1).size());
    return QString::number(0.0, 'f', decimals);
}

/// Blanks beside others, and those at an end, would be left out.
QString markupOf(const QString& text)
{
    QString escaped = text.toHtmlEscaped();
    if (!escaped.startsWith(BLANK) && !escaped.endsWith(BLANK)
        && !escaped.contains(QLatin1String("  ")))
        return escaped;
    QString markup;
    for (int i = 0; i < static_cast<int>(escaped.size()); ++i) {
        const bool isAlone = i > 0 && escaped.at(i - 1) != BLANK && i + 1 < escaped.size();
        if (escaped.at(i) == BLANK && !isAlone)
            markup += QLatin1String("&#32;");
        else
            markup += escaped.at(i);
    }
    return markup;
}

/// 1033 is English of the USA, and @ the format of texts.
void appendCell(const Cell& cell, QString* markup)
{
    if (cell.isNumber && isExactNumber(cell.text)) {
        *markup += QStringLiteral("<td sdval=\"%1\" sdnum=\"1033;0;%2\">%1")
                       .arg(cell.text, formatOf(cell.text));
    } else {
        *markup += QLatin1String("<td sdnum=\"1033;0;@\">");
        if (!cell.text.isEmpty())
            *markup += markupOf(cell.text);
    }
    *markup += QLatin1String("</td>");
}

const char MARKUP_TYPE[] = "text/html";

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
using DataType = QMetaType;
#else
using DataType = QVariant::Type;
#endif

/// Makes the HTML each time that it is asked for.
class CellsData : public QMimeData
{
public:
    explicit CellsData(const QList<QList<Cell>>& rows) : m_rows(rows) {}

    QStringList formats() const override
    {
        return QMimeData::formats() << QString::fromLatin1(MARKUP_TYPE);
    }

protected:
    QVariant retrieveData(const QString& format, DataType type) const override
    {
        return format == QLatin1String(MARKUP_TYPE) ? cellsMarkup(m_rows)
                                                    : QMimeData::retrieveData(format, type);
    }

private:
    QList<QList<Cell>> m_rows;
};

} // namespace

QString cellsMarkup(const QList<QList<Cell>>& rows)
{
    QString markup = QStringLiteral("<html><head><meta http-equiv=\"content-type\" "
                                    "content=\"text/html; charset=utf-8\"></head><body><table>\n");
    for (const QList<Cell>& row : rows) {
        markup += QLatin1String("<tr>");
        for (const Cell& cell : row)
            appendCell(cell, &markup);
        markup += QLatin1String("</tr>\n");
    }
    return markup + QLatin1String("</table></body></html>\n");
}

QMimeData* cellsData(const QList<QList<Cell>>& rows)
{
    QString text;
    for (const QList<Cell>& row : rows) {
        QStringList texts;
        for (const Cell& cell : row)
            texts << cell.text;
        text += cellsText(texts);
    }
    auto* const data = new CellsData(rows);
    data->setText(text);
    return data;
}

} // namespace kxpanel
