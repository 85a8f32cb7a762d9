#ifndef KX_PANEL_DUMP_DUMP_READER_H
#define KX_PANEL_DUMP_DUMP_READER_H

#include "panel/dump/dump_file.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QStringList>

namespace kx
{

/// Takes the lines of a dump's file one after the other, see dump_file.h.
class DumpReader
{
public:
    /// @param line without its "\n"
    /// @return false when it is refused: see fault()
    bool take(const QByteArray& line);
    /// There are no more lines. False when the dump's last line has not come: see fault().
    bool end();
    const Dump& dump() const { return m_dump; }

    const QString& fault() const { return m_fault; }
    int column() const { return m_column; } ///< of the fault, in characters from 1

private:
    enum class Expected { Version, Times, Station, Value, Nothing };

    bool takeWords(const QString& line);
    bool takeVersion(const QStringList& words);
    bool takeTimes(const QStringList& words);
    bool takeStation(const QStringList& words);
    bool takeValue(const QStringList& words);
    bool takeEnd(const QStringList& words);
    bool takeAddress(const QString& typed, AddressRange* address);
    void add(const AddressRange& address, qint64 value);
    bool fail(const QString& fault, int column = 1);

    Dump m_dump;
    Expected m_expected = Expected::Version;
    int m_station = 0;
    QCryptographicHash m_sum{QCryptographicHash::Sha256};
    QString m_fault;
    int m_column = 1;
};

} // namespace kx

#endif
