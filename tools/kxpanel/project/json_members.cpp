#include "kxpanel/project/json_members.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QSet>
#include <QtCore/QVector>

namespace kxpanel
{

namespace
{

const char QUOTE = '"';
const char ESCAPE = '\\';
const int DEEPEST = 1024; // objects in each other that Qt reads

/// @param begin of a text, which is its quote
/// @return behind the quote that ends it
int endOfText(const QByteArray& json, int begin)
{
    int at = begin + 1;
    while (at < json.size() && json.at(at) != QUOTE)
        at += json.at(at) == ESCAPE ? 2 : 1;
    return at + 1;
}

bool isMember(const QByteArray& json, int behindName)
{
    int at = behindName;
    while (at < json.size() && QByteArray(" \t\r\n").contains(json.at(at)))
        ++at;
    return at < json.size() && json.at(at) == ':';
}

/// @param quoted a text with its quotes
QString textOf(const QByteArray& quoted)
{
    return QJsonDocument::fromJson('[' + quoted + ']').array().at(0).toString();
}

} // namespace

int repeatedMember(const QByteArray& text, QString* name)
{
    QVector<QSet<QString>> names; // of the objects around, and empty ones of arrays
    for (int at = 0; at < text.size() && names.size() <= DEEPEST; ++at) {
        const char character = text.at(at);
        if (character == '{' || character == '[') {
            names.append(QSet<QString>());
        } else if ((character == '}' || character == ']') && !names.isEmpty()) {
            names.removeLast();
        } else if (character == QUOTE) {
            const int end = endOfText(text, at);
            const QByteArray quoted = text.mid(at, end - at);
            if (!names.isEmpty() && isMember(text, end)) {
                *name = textOf(quoted);
                if (names.last().contains(*name))
                    return at;
                names.last().insert(*name);
            }
            at = end - 1;
        }
    }
    return -1;
}

} // namespace kxpanel
