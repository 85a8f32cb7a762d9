#include "panel/files/tag_row.h"

#include "addresses/digits.h"
#include "addresses/station_text.h"
#include "panel/files/format_columns.h"
#include "panel/text/duration.h"
#include "panel/values/value_address.h"
#include "system/translated_text.h"

#include <limits>

namespace kx
{

namespace
{

enum Column { NAME, STATION, ADDRESS, COUNT, EVERY, FORMAT };

/// What is read out of one row.
struct Row {
    const CsvRow& csv;
    QStringList* faults;

    QString text(int column) const { return csv.fields.at(column).text; }
    bool has(int column) const { return !text(column).isEmpty(); }
    void complain(int column, const QString& fault) const
    {
        *faults << columnFault(tagColumns().at(column), text(column), fault);
    }
};

void takeStation(const Row& row, Tag* tag)
{
    if (row.has(STATION) && !parseStation(row.text(STATION), &tag->range.station))
        row.complain(STATION,
                     Text::tr("must be %1 to %2").arg(LOWEST_STATION).arg(HIGHEST_STATION));
}

void takeCountCell(const Row& row, Tag* tag)
{
    if (!row.has(COUNT))
        return;
    bool fits = false;
    const int count = row.text(COUNT).toInt(&fits);
    if (!hasOnlyDigits(row.text(COUNT), 10) || (fits && count < 1))
        row.complain(COUNT, Text::tr("must be 1 or more"));
    else
        tag->range.values = fits ? count : std::numeric_limits<int>::max();
}

/// The address of one value, with a bit behind it at most.
bool takeAddressCell(const Row& row, Tag* tag)
{
    if (!row.has(ADDRESS)) {
        *row.faults << Text::tr("the tag has no address");
        return false;
    }
    const QString text = row.text(ADDRESS);
    AddressRange range;
    QString fault;
    const bool isPlain = !text.contains(QLatin1Char(':')) && !text.contains(QLatin1Char('@'))
                         && !text.contains(QLatin1Char('/'));
    if (!isPlain || !parseValueAddress(text, &range, &tag->format, &fault)) {
        row.complain(ADDRESS,
                     isPlain ? fault
                             : Text::tr("count, station and format have columns of their own"));
        return false;
    }
    tag->range.type = range.type;
    tag->range.address = range.address;
    return true;
}

void takeInterval(const Row& row, Tag* tag)
{
    if (row.has(EVERY) && !parseInterval(row.text(EVERY), &tag->interval))
        row.complain(EVERY, Text::tr("must be a time from 0 to 1440min, such as 500ms, "
                                     "10s or 5min"));
}

} // namespace

const QList<CsvColumn>& tagColumns()
{
    static const QList<CsvColumn> columns = QList<CsvColumn>{{"name", true},
                                                             {"station", false},
                                                             {"address", true},
                                                             {"count", false},
                                                             {"every", false}}
                                            + formatColumns()
                                            + QList<CsvColumn>{{"comment", false}};
    return columns;
}

Tag tagOfRow(const CsvRow& csv, QStringList* faults)
{
    const Row row = {csv, faults};
    Tag tag;
    tag.name = row.text(NAME);
    tag.comment = row.text(FORMAT + static_cast<int>(formatColumns().size()));
    if (!row.has(NAME))
        *faults << Text::tr("the tag has no name");
    takeStation(row, &tag);
    takeCountCell(row, &tag);
    const bool hasAddress = takeAddressCell(row, &tag);
    takeFormatColumns(csv, FORMAT, tag.range.type, &tag.format, faults);
    takeInterval(row, &tag);
    QString fault;
    if (hasAddress && !coverValues(&tag.range, &tag.format, &fault))
        row.complain(row.has(COUNT) ? COUNT : ADDRESS, fault);
    return tag;
}

} // namespace kx
