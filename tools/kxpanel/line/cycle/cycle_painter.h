#ifndef KX_KXPANEL_LINE_CYCLE_CYCLE_PAINTER_H
#define KX_KXPANEL_LINE_CYCLE_CYCLE_PAINTER_H

#include "kxpanel/line/colours/line_colours.h"
#include "kxpanel/line/cycle/line_record.h"
#include "kxpanel/line/cycle/time_axis.h"

#include <QtCore/QHash>
#include <QtGui/QPalette>

class QPainter;

namespace kxpanel
{

/// Draws exchanges over a time axis, a lane for each station. What it takes grows with the pixels
/// and with the exchanges that are seen.
class CyclePainter
{
public:
    /// @param area of the lanes and the axis below them
    CyclePainter(QPainter* painter, const LineRecord& record, const TimeAxis& axis,
                 const QPalette& palette, const QRectF& area);

    /// @param selected a place, -1: none
    void paint(qint64 selected);

private:
    QRectF lane(int station) const;
    void paintLanes();
    void paintTicks();
    void paintExchange(qint64 place);
    void paintMarks(qint64 place);
    void paintSelection(qint64 place);

    QPainter* m_painter;
    const LineRecord& m_record;
    const TimeAxis& m_axis;
    QPalette m_palette;
    QRectF m_lanes;
    QList<int> m_stations;
    LineColours m_colours;
    double m_row; ///< height of a row of text
    QHash<int, double>
        m_painted; ///< by station: up to where, so that many in a pixel are painted once
};

} // namespace kxpanel

#endif
