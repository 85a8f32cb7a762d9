#ifndef KX_KXHOST_VIEWS_WATCH_TABLE_INPUT_H
#define KX_KXHOST_VIEWS_WATCH_TABLE_INPUT_H

#include "kxhost/terminal/prompt_input.h"

namespace kx
{

/// What a key means to the live table.
struct TableAction {
    enum Kind {
        None, ///< the prompt may be another
        Write,
        Filter,
        Rows,
        Pages,
        Begin,
        End
    };
    Kind kind = None;
    int count = 0; ///< of Rows and Pages: down, negative up
    QString text;  ///< of Write: the assignment; of Filter: what rows must contain
};

/// The line below the live table: an assignment is typed there or, begun with a stroke, a filter.
///
///                 / into an empty line
///     write  ----------------------------->  filter    the table follows what is typed
///       ^                                      |
///       |------- Enter, the filter stays ------|
///       |------- Escape, or Backspace in an ---|
///                empty line: no filter
///
/// Escape while nothing is typed ends a filter that stayed. Arrows and such scroll in both.
class TableInput
{
public:
    TableAction take(const Key& key);

    /// "write> D100=5_", "filter> pump_".
    QString promptRow() const;

private:
    TableAction takeInFilter(const Key& key);
    TableAction endFilter();

    PromptInput m_assignment;
    PromptInput m_filter;
    bool m_isFiltering = false; ///< a filter is being typed
};

} // namespace kx

#endif
