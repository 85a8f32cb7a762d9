#ifndef KX_KXPANEL_GRID_MODEL_WATCH_COLUMNS_H
#define KX_KXPANEL_GRID_MODEL_WATCH_COLUMNS_H

namespace kxpanel
{

/// What is said of a column, to be translated by WatchModel::tr().
struct ColumnText {
    const char* heading;
    const char* toolTip;
    bool isNumber; ///< stands at the right
};

/// @param column one of WatchModel::Column
const ColumnText& columnText(int column);

} // namespace kxpanel

#endif
