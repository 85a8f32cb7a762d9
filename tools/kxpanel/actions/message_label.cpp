#include "kxpanel/actions/message_label.h"

namespace kxpanel
{

namespace
{

// Of a row that is cut: it begins with a place and ends with a reason.
const int LETTERS_AHEAD = 200;
const int LETTERS_BEHIND = 100;

QString cutRow(const QString& row)
{
    if (row.size() <= LETTERS_AHEAD + LETTERS_BEHIND)
        return row;
    return row.left(LETTERS_AHEAD) + QStringLiteral(" \u2026 ") + row.right(LETTERS_BEHIND);
}

} // namespace

MessageLabel::MessageLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a word may be longer than it
    setWordWrap(true);
}

void MessageLabel::say(const QString& text)
{
    QStringList rows = text.split(QLatin1Char('\n'));
    for (QString& row : rows)
        row = cutRow(row);
    setText(rows.join(QLatin1Char('\n')));
}

} // namespace kxpanel
