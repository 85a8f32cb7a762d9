/// The merge in its plainest form, on whole records and with a bubble sort, to
/// compare the driver's with. Shares no code with it.
#ifndef KX_TESTS_PLANNING_MERGE_PASSES_H
#define KX_TESTS_PLANNING_MERGE_PASSES_H

#include "driver/records.h"

#include <QtCore/QList>

QList<KEY_ADDRESS> plainMergeForReading(QList<KEY_ADDRESS> entries, int maxWords);

QList<KEY_ADDRESS> plainMergeForRecipe(const QList<KEY_ADDRESS>& entries, int maxWords,
                                       QList<int>& blockStarts);

#endif
