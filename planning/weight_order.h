#ifndef TARVELAN_PLANNING_WEIGHT_ORDER_H
#define TARVELAN_PLANNING_WEIGHT_ORDER_H

#include "planning/address_span.h"

/// An entry's sort key.
struct Weighed {
    quint32 weight;
    quint32 index; ///< of the entry among the spans
};

typedef std::vector<Weighed> WeightOrder;

/// The spans' places, ascending by weight; entries of equal weight keep their order.
WeightOrder orderByWeight(const AddressSpans& spans);

#endif
