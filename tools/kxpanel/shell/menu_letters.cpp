#include "kxpanel/shell/menu_letters.h"

#include <QtCore/QSet>

namespace kxpanel
{

namespace
{

/// Where the mark stands; "&&" is none. Negative: nowhere.
int markIn(const QString& text)
{
    for (int at = 0; at + 1 < text.size(); ++at) {
        if (text.at(at) != QLatin1Char('&'))
            continue;
        if (text.at(at + 1) != QLatin1Char('&'))
            return at;
        ++at;
    }
    return -1;
}

QString marked(const QString& text, const QSet<QChar>& taken)
{
    for (int at = 0; at < text.size(); ++at) {
        if (text.at(at).isLetter() && !taken.contains(text.at(at).toUpper()))
            return QString(text).insert(at, QLatin1Char('&'));
    }
    return text;
}

} // namespace

QStringList withOwnLetters(const QStringList& texts)
{
    QSet<QChar> taken;
    QStringList own;
    for (const QString& text : texts) {
        const int mark = markIn(text);
        const bool isTwice = mark >= 0 && taken.contains(text.at(mark + 1).toUpper());
        own << (isTwice ? marked(QString(text).remove(mark, 1), taken) : text);
        const int kept = markIn(own.last());
        if (kept >= 0)
            taken << own.last().at(kept + 1).toUpper();
    }
    return own;
}

} // namespace kxpanel
