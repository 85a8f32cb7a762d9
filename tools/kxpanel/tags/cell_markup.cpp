#include "kxpanel/tags/cell_markup.h"

#include "kxpanel/tags/cell_table.h"

#include <QtCore/QMimeData>
#include <QtCore/QRegularExpression>

namespace kxpanel
{

namespace
{

const QLatin1Char BLANK(' ');
const int EXACT_DIGITS = 15; // of a spreadsheet's numbers

bool isExactNumber(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("\\A-?(0|[1-9][0-9]*)(\\.[0-9]+)?\\z"));
    static const QRegularExpression digit(QStringLiteral("[0-9]"));
    return number.match(text).hasMatch() && text.count(digit) <= EXACT_DIGITS;
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
    QString markup;
    bool isAlone = false;
    for (const QChar& character : text.toHtmlEscaped()) {
        if (character == BLANK && !isAlone)
            markup += QLatin1String("&#32;");
        else
            markup += character;
        isAlone = character != BLANK;
    }
    if (markup.endsWith(BLANK))
        markup.replace(markup.size() - 1, 1, QStringLiteral("&#32;"));
    return markup;
}

/// 1033 is English of the USA, and @ the format of texts.
QString cellMarkup(const Cell& cell)
{
    if (cell.isNumber && isExactNumber(cell.text))
        return QStringLiteral("<td sdval=\"%1\" sdnum=\"1033;0;%2\">%1</td>")
            .arg(cell.text, formatOf(cell.text));
    return QStringLiteral("<td sdnum=\"1033;0;@\">") + markupOf(cell.text) + QLatin1String("</td>");
}

} // namespace

QString cellsMarkup(const QList<QList<Cell>>& rows)
{
    QString markup = QStringLiteral("<html><head><meta http-equiv=\"content-type\" "
                                    "content=\"text/html; charset=utf-8\"></head><body><table>\n");
    for (const QList<Cell>& row : rows) {
        markup += QLatin1String("<tr>");
        for (const Cell& cell : row)
            markup += cellMarkup(cell);
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
    auto* const data = new QMimeData;
    data->setText(text);
    data->setHtml(cellsMarkup(rows));
    return data;
}

} // namespace kxpanel
