#include "kxpanel/exchanges/exchange_history.h"

namespace kxpanel
{

void ExchangeHistory::add(const Exchange& exchange)
{
    m_kept.push_back(exchange);
    if (size() > m_most) {
        m_kept.pop_front();
        ++m_begin;
    }
}

void ExchangeHistory::clear()
{
    m_begin = end();
    m_kept.clear();
}

} // namespace kxpanel
