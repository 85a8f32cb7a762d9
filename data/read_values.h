#ifndef TARVELAN_DATA_READ_VALUES_H
#define TARVELAN_DATA_READ_VALUES_H

#include "data/read_frame.h"
#include "data/reply_bytes.h"

/// Decodes a good reply into the cache and, while a recipe is read, into the
/// recipe buffer. Each changed value is reported before it is stored.
void storeReadValues(const ReadRequest& request, const ReplyBytes& reply);

/// Marks the records that an unanswered read covered as failed.
void markUnanswered(const ReadRequest& request);

#endif
