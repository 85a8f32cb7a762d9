/// Lists of tags as panels have them.
#ifndef KX_TESTS_TOOLS_PANEL_PLAN_TAG_LISTS_H
#define KX_TESTS_TOOLS_PANEL_PLAN_TAG_LISTS_H

#include "addresses/address_text.h"

#include <QtCore/QList>

namespace kx
{

struct TagList {
    QString name;
    QList<AddressRange> ranges;
};

/// The same ones each time; random ones are made from fixed seeds.
QList<TagList> tagLists();

} // namespace kx

#endif
