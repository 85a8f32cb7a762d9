/// Everything that a runtime needs to drive the library: one include.
#ifndef TARVELAN_KX_SERIES_H
#define TARVELAN_KX_SERIES_H

#include "data/host_access.h"
#include "data/reply_handling.h"
#include "driver/records.h"
#include "driver/setup.h"
#include "driver/tarvelan.h"
#include "modbus/send_schedule.h"
#include "planning/condition_reads.h"
#include "planning/read_jobs.h"
#include "registers/address_check.h"
#include "registers/address_series.h"
#include "registers/recipe_addresses.h"
#include "registers/register_catalogue.h"

#endif
