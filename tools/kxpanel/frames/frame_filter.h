#ifndef KX_KXPANEL_FRAMES_FRAME_FILTER_H
#define KX_KXPANEL_FRAMES_FRAME_FILTER_H

#include "kxpanel/exchanges/exchange_verdict.h"

namespace kxpanel
{

/// Which exchanges a person wants to see: those that all of it lets through.
struct FrameFilter {
    int station = -1;                  ///< -1: all
    JobKind kind = NO_JOB;             ///< NO_JOB: all
    QVector<ExchangeVerdict> verdicts; ///< none: all
    QString text;                      ///< in the request's words, such as "D100"; empty: all

    bool lets(const Exchange& exchange) const;
};

} // namespace kxpanel

#endif
