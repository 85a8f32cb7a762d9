/// What stands below the bars of a row. Pure functions.
#ifndef KX_KXPANEL_LINE_PLAN_PLAN_LABELS_H
#define KX_KXPANEL_LINE_PLAN_PLAN_LABELS_H

#include "kxpanel/line/plan/plan_rows.h"

#include <functional>

namespace kxpanel
{

/// Where a bar is drawn, in pixels.
struct BarPlace {
    double left = 0;
    double right = 0;
};

struct PlanLabel {
    double left = 0;
    QString text;
};

/// "D100–D131" where it fits, else "D100", else nothing: no label stands on another or beyond the
/// end, and each begins below its bar.
/// @param bars as many as `places`, both rising
/// @param end of what is drawn, as the places in pixels
/// @param widthOf how wide a text is; asked of few bars where they are narrow
QVector<PlanLabel> planLabels(const QVector<PlanBar>& bars, const QVector<BarPlace>& places,
                              double end, const std::function<double(const QString&)>& widthOf);

} // namespace kxpanel

#endif
