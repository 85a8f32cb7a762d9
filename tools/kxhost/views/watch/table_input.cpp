#include "kxhost/views/watch/table_input.h"

namespace kx
{

namespace
{

TableAction scrollingOf(const Key& key)
{
    switch (key.kind) {
    case KeyKind::Up:
        return {TableAction::Rows, -1, QString()};
    case KeyKind::Down:
        return {TableAction::Rows, 1, QString()};
    case KeyKind::PageUp:
        return {TableAction::Pages, -1, QString()};
    case KeyKind::PageDown:
        return {TableAction::Pages, 1, QString()};
    case KeyKind::Home:
        return {TableAction::Begin, 0, QString()};
    case KeyKind::End:
        return {TableAction::End, 0, QString()};
    default:
        return TableAction();
    }
}

} // namespace

TableAction TableInput::take(const Key& key)
{
    TableAction scrolling = scrollingOf(key); // not const, so that it can be moved out
    if (scrolling.kind != TableAction::None)
        return scrolling;
    if (m_isFiltering)
        return takeInFilter(key);
    if (key.kind == KeyKind::Escape) {
        if (m_assignment.text().isEmpty())
            return endFilter();
        m_assignment.clear();
        return TableAction();
    }
    if (key.kind == KeyKind::Text && key.text == QLatin1String("/")
        && m_assignment.text().isEmpty()) {
        m_isFiltering = true;
        return TableAction();
    }
    const QString entered = m_assignment.take(key);
    return entered.isEmpty() ? TableAction() : TableAction{TableAction::Write, 0, entered};
}

TableAction TableInput::takeInFilter(const Key& key)
{
    const bool wasEmpty = m_filter.text().isEmpty();
    if (key.kind == KeyKind::Escape || (key.kind == KeyKind::Backspace && wasEmpty))
        return endFilter();
    if (key.kind == KeyKind::Enter) {
        m_isFiltering = false; // what was typed stays in force
        return TableAction();
    }
    m_filter.take(key);
    return {TableAction::Filter, 0, m_filter.text()};
}

TableAction TableInput::endFilter()
{
    m_isFiltering = false;
    m_filter.clear();
    return {TableAction::Filter, 0, QString()};
}

QString TableInput::promptRow() const
{
    return m_isFiltering ? QLatin1String("filter> ") + m_filter.text() + QLatin1Char('_')
                         : QLatin1String("write> ") + m_assignment.text() + QLatin1Char('_');
}

} // namespace kx
