#include "kxpanel/tags/cell_notes.h"

#include <QtCore/QRegularExpression>

namespace kxpanel
{

namespace
{

/// Empty: it has none.
QString numberOf(const QString& attributes)
{
    static const QRegularExpression number(QStringLiteral("\\bsdval=\"([^\"]*)\""),
                                           QRegularExpression::CaseInsensitiveOption);
    return number.match(attributes).captured(1);
}

bool isOfTexts(const QString& attributes)
{
    static const QRegularExpression format(QStringLiteral("\\bsdnum=\"[^\"]*;@\""),
                                           QRegularExpression::CaseInsensitiveOption);
    return format.match(attributes).hasMatch();
}

QString withoutMarkup(QString content)
{
    static const QRegularExpression element(QStringLiteral("<[^>]*>"));
    return content.remove(element).trimmed();
}

/// As somebody types it: with a decimal comma, or more points than a decimal one.
bool isTyped(const QString& text)
{
    static const QRegularExpression number(
        QStringLiteral("\\A[-+]?[0-9]+(?:(?:\\.[0-9]{3})*,[0-9]+|(?:\\.[0-9]{3}){2,})\\z"));
    return number.match(text).hasMatch();
}

} // namespace

CellNotes::CellNotes(std::function<QString()> markup) : m_markup(std::move(markup)) {}

/// A cell's mark ends before the next one begins, so that each is looked at a few times at most.
/// Of a table in which cells span others nothing is known: it has fewer cells than its text.
void CellNotes::read()
{
    static const QRegularExpression part(
        QStringLiteral("<tr\\b|<t[dh]\\b((?:[^<>\"]++|\"[^\"]*\")*+)>"
                       "((?:[^<]++|<(?!/?t[dhr]\\b))*+)"),
        QRegularExpression::CaseInsensitiveOption);
    const QString markup = m_markup();
    QRegularExpressionMatchIterator parts = part.globalMatch(markup);
    while (parts.hasNext()) {
        const QRegularExpressionMatch found = parts.next();
        if (found.lastCapturedIndex() == 0) {
            m_rows << QList<Note>();
            continue;
        }
        const QString attributes = found.captured(1);
        const Note note = {withoutMarkup(found.captured(2)), numberOf(attributes),
                           isOfTexts(attributes)};
        m_areTyped |= note.isText && isTyped(note.text);
        if (!m_rows.isEmpty())
            m_rows.last() << note;
    }
}

std::optional<QString> CellNotes::numberIn(int row, const QStringList& cells, int column)
{
    if (m_markup) {
        read();
        m_markup = nullptr;
    }
    const QList<Note> notes = m_rows.value(row);
    const QString cell = cells.at(column).trimmed();
    if (notes.size() != cells.size() || notes.at(column).text != cell)
        return std::nullopt;
    const Note& note = notes.at(column);
    const QString whole = QString(cell).remove(QLatin1Char('.'));
    if (note.number == whole)
        return whole;
    if (note.number == QString(cell).replace(QLatin1Char('.'), QLatin1Char(',')))
        return cell;
    const bool isOurs = note.isText && !m_areTyped && !cell.endsWith(QLatin1Char('0'));
    return note.number.isEmpty() && isOurs ? std::optional<QString>(cell) : std::nullopt;
}

} // namespace kxpanel
