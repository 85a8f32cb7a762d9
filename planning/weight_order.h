#ifndef TARVELAN_PLANNING_WEIGHT_ORDER_H
#define TARVELAN_PLANNING_WEIGHT_ORDER_H

#include "planning/address_span.h"

/// The same spans, ascending by weight; entries of equal weight keep their order.
AddressSpans sortedByWeight(const AddressSpans& spans);

#endif
