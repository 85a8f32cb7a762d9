#include "kxsim/memory/memory_file.h"

#include "panel/files/csv_table.h"
#include "panel/files/text_file.h"

#include "registers/register_types.h"

#include <map>
#include <tuple>

namespace kxsim
{

namespace
{

enum Column { ADDRESS, VALUE };

const char* const HEADER = "address,value\n";
const char* const NOTHING = "D0,0\n"; // a table needs a row

const QList<kx::CsvColumn>& columns()
{
    static const QList<kx::CsvColumn> columns = {{"address", true}, {"value", true}};
    return columns;
}

using Row = std::tuple<int, const RegisterType*, int>; // station, type, address

/// The lines of the addresses so far.
using Lines = std::map<Row, int>;

bool takeAddresses(const kx::AddressRange& range, int line, Lines* lines, QString* fault)
{
    for (int address = range.address; address < range.address + range.values; ++address) {
        const auto [place, isNew] = lines->insert({{range.station, range.type, address}, line});
        if (!isNew) {
            *fault = QStringLiteral("%1 has a value in line %2 already")
                         .arg(kx::addressText(range.type, address), QString::number(place->second));
            return false;
        }
    }
    return true;
}

bool takeRow(const kx::CsvRow& row, Stations* stations, Lines* lines, kx::Assignment* assignment,
             QString* fault)
{
    const QString address = row.fields.at(ADDRESS).text;
    if (address.isEmpty()) {
        *fault = QStringLiteral("the row has no address");
        return false;
    }
    std::vector<ControllerMemory*> memories;
    return kx::parseAssignment(address + QLatin1Char('=') + row.fields.at(VALUE).text, assignment,
                               fault)
           && takeAddresses(assignment->range, row.line, lines, fault)
           && stations->named(assignment->range, &memories, fault);
}

bool takeRows(const QList<kx::CsvRow>& rows, Stations* stations, QList<kx::Assignment>* assignments,
              kx::CsvFault* fault)
{
    Lines lines;
    for (const kx::CsvRow& row : rows) {
        fault->line = row.line;
        kx::Assignment assignment;
        if (!takeRow(row, stations, &lines, &assignment, &fault->text))
            return false;
        *assignments << assignment;
    }
    return true;
}

void appendValues(const ControllerMemory& memory, const QByteArray& station, QByteArray* text)
{
    for (const RegisterType& row : REGISTER_TYPES) {
        const RegisterType* const type = findRegisterType(QString::fromLatin1(row.name));
        for (int address = type->lowestAddress; address <= kx::highestAddress(type); ++address) {
            const quint32 value = memory.value(type, address);
            if (value != 0)
                *text += kx::addressText(type, address).toLatin1() + station + ','
                         + QByteArray::number(value) + '\n';
        }
    }
}

} // namespace

bool parseMemory(const QByteArray& text, const QString& path, Stations* stations, QString* error)
{
    kx::CsvTable table;
    kx::CsvFault fault;
    QList<kx::Assignment> assignments;
    if (kx::CsvTable::parse(text, columns(), &table, &fault)
        && takeRows(table.rows(), stations, &assignments, &fault)) {
        for (const kx::Assignment& assignment : assignments)
            stations->set(assignment);
        return true;
    }
    const QString place =
        fault.line > 0 ? path + QLatin1Char(':') + QString::number(fault.line) : path;
    *error = QStringLiteral("%1: %2").arg(place, fault.text);
    return false;
}

bool loadMemory(const QString& path, Stations* stations, QString* error)
{
    QByteArray text;
    return kx::readTextFile(path, &text, error) && parseMemory(text, path, stations, error);
}

QByteArray memoryText(Stations* stations)
{
    QByteArray rows;
    const bool isOne = stations->all().size() == 1;
    for (const auto& [number, memory] : stations->all())
        appendValues(memory, isOne ? QByteArray() : '@' + QByteArray::number(number), &rows);
    return HEADER + (rows.isEmpty() ? QByteArray(NOTHING) : rows);
}

} // namespace kxsim
