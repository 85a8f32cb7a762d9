#include "kxpanel/line/cycle/cycle_marks.h"

namespace kxpanel
{

namespace
{

const int WITHOUT_MARK = 3; // times that another poll came

QString pollOf(const Exchange& exchange)
{
    const kx::AddressRange& range = exchange.range;
    return QStringLiteral("%1 %2:%3")
        .arg(range.station)
        .arg(kx::addressText(range.type, range.address))
        .arg(range.values);
}

} // namespace

bool CycleMarks::begins(const Exchange& exchange)
{
    if (exchange.kind != CYCLIC_READ_JOB || exchange.wasRepeated || !exchange.range.type)
        return false;
    const QString poll = pollOf(exchange);
    if (poll != m_mark && !m_mark.isEmpty() && ++m_others[poll] < WITHOUT_MARK)
        return false;
    m_mark = poll;
    m_others.clear();
    return true;
}

} // namespace kxpanel
