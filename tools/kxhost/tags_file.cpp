#include "kxhost/tags_file.h"

#include "kxhost/recipe_csv.h"

#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtCore/QStringList>

namespace
{

const char* const HEADER = "name,station,address,count,comment";

enum Column { NAME, STATION, ADDRESS, COUNT, COMMENT, COLUMN_COUNT };

// Count and comment may be left off.
const int FEWEST_COLUMNS = COUNT;

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

bool fail(QString* error, const QString& message)
{
    *error = message;
    return false;
}

bool splitFields(const QByteArray& line, QStringList* fields, QString* error)
{
    QList<CsvField> parts;
    if (!splitCsvLine(line, &parts, error))
        return false;
    for (const CsvField& part : parts)
        *fields << part.text;
    return true;
}

bool takeHeader(const QStringList& fields, QString* error)
{
    if (fields == text(HEADER).split(QLatin1Char(',')))
        return true;
    return fail(error, text("the first line must be the header %1").arg(text(HEADER)));
}

bool takeRange(const QStringList& fields, AddressRange* range, QString* error)
{
    QString address = fields[ADDRESS];
    if (address.contains(QLatin1Char(':')) || address.contains(QLatin1Char('@')))
        return fail(error, text("%1: count and station have columns of their own").arg(address));
    if (!fields[COUNT].isEmpty())
        address += QLatin1Char(':') + fields[COUNT];
    if (!fields[STATION].isEmpty())
        address += QLatin1Char('@') + fields[STATION];
    return parseAddressRange(address, range, error);
}

bool takeTag(QStringList fields, Tag* tag, QString* error)
{
    if (fields.size() < FEWEST_COLUMNS || fields.size() > COLUMN_COUNT)
        return fail(error, text("%1 fields instead of %2 to %3 (%4)")
                               .arg(QString::number(fields.size()), QString::number(FEWEST_COLUMNS),
                                    QString::number(COLUMN_COUNT), text(HEADER)));
    while (fields.size() < COLUMN_COUNT)
        fields << QString();
    tag->name = fields[NAME];
    tag->comment = fields[COMMENT];
    if (tag->name.isEmpty())
        return fail(error, text("the tag has no name"));
    if (fields[ADDRESS].isEmpty())
        return fail(error, text("the tag has no address"));
    return takeRange(fields, &tag->range, error);
}

bool isSkipped(const QByteArray& line)
{
    const QByteArray words = line.trimmed();
    return words.isEmpty() || words.startsWith('#');
}

/// Takes one line after the other; the first is the header.
class TagReader
{
public:
    bool take(const QByteArray& line, int lineNumber, QString* error)
    {
        QStringList fields;
        if (!splitFields(line, &fields, error))
            return false;
        if (!m_headerSeen) {
            m_headerSeen = true;
            return takeHeader(fields, error);
        }
        Tag tag;
        if (!takeTag(fields, &tag, error))
            return false;
        if (m_lineOf.contains(tag.name))
            return fail(error, text("the name '%1' is taken by line %2")
                                   .arg(tag.name, QString::number(m_lineOf.value(tag.name))));
        m_lineOf.insert(tag.name, lineNumber);
        m_tags << tag;
        return true;
    }

    const QList<Tag>& tags() const { return m_tags; }

private:
    bool m_headerSeen = false;
    QHash<QString, int> m_lineOf;
    QList<Tag> m_tags;
};

} // namespace

bool loadTags(const QString& path, QList<Tag>* tags, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(error, text("%1: %2").arg(path, file.errorString()));
    const QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return fail(error, text("%1: %2").arg(path, file.errorString()));
    return parseTags(content, path, tags, error);
}

bool parseTags(const QByteArray& content, const QString& path, QList<Tag>* tags, QString* error)
{
    const char* const byteOrderMark = "\xEF\xBB\xBF";
    const QList<QByteArray> lines =
        (content.startsWith(byteOrderMark) ? content.mid(3) : content).split('\n');
    TagReader reader;
    int lineNumber = 0;
    for (const QByteArray& line : lines) {
        ++lineNumber;
        if (isSkipped(line))
            continue;
        QString fault;
        if (!reader.take(line, lineNumber, &fault))
            return fail(error, text("%1:%2: %3").arg(path, QString::number(lineNumber), fault));
    }
    if (reader.tags().isEmpty())
        return fail(error, text("%1: no tags; a tags file has the header %2 and a line for each")
                               .arg(path, text(HEADER)));
    *tags = reader.tags();
    return true;
}
