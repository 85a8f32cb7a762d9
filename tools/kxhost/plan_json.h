/// A plan as one JSON object; times in microseconds.
#ifndef KX_KXHOST_PLAN_JSON_H
#define KX_KXHOST_PLAN_JSON_H

#include "kxhost/plan_lengths.h"

#include <QtCore/QJsonObject>

QJsonObject planJson(const Plan& plan, const QList<LengthResult>& lengths,
                     const QList<AddressRange>& watched, const PlanTiming& timing);

#endif
