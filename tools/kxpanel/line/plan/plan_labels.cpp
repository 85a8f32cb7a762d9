#include "kxpanel/line/plan/plan_labels.h"

#include "registers/register_types.h"

#include <algorithm>

namespace kxpanel
{

QVector<PlanLabel> planLabels(const QVector<PlanBar>& bars, const QVector<BarPlace>& places,
                              double end, const std::function<double(const QString&)>& widthOf)
{
    const double space = widthOf(QStringLiteral(" "));
    const int count = static_cast<int>(bars.size());
    QVector<PlanLabel> labels;
    double used = 0; // up to where labels stand
    for (int i = 0; i < count; ++i) {
        const double left = std::max(places.at(i).left, used);
        if (left > places.at(i).right)
            continue;
        const kx::PlannedRequest& request = bars.at(i).request;
        const QString first = kx::addressText(request.type, request.firstAddress());
        const QString last = kx::addressText(request.type, request.lastAddress());
        const QString both = first == last ? first : first + QChar(0x2013) + last; // en dash
        const double next = i + 1 < count ? places.at(i + 1).left - space : end;
        QString text = both;
        double right = left + widthOf(both);
        if (right > std::max(next, places.at(i).right)) {
            text = first;
            right = left + widthOf(first);
        }
        if (right > end)
            continue;
        labels << PlanLabel{left, text};
        used = right + space;
    }
    return labels;
}

} // namespace kxpanel
