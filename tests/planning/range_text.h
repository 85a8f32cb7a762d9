/// Address ranges and jobs as texts, so that tables of them stay readable:
/// "1 D 100 x5" is station 1, D100, 5 registers.
#ifndef KX_TESTS_PLANNING_RANGE_TEXT_H
#define KX_TESTS_PLANNING_RANGE_TEXT_H

#include "driver/records.h"

#include <QtCore/QList>
#include <QtCore/QString>

/// Ranges from their texts, separated by ", ". `keyTag1` numbers them from 0.
QList<KEY_ADDRESS> ranges(const QString& texts);

QString textOf(const QList<KEY_ADDRESS>& ranges);
QString textOf(const QList<VARIABLE>& jobs);
QString textOf(const VARIABLE& job);

#endif
