#ifndef KX_TOOLS_SERIES_COMMAND_H
#define KX_TOOLS_SERIES_COMMAND_H

#include <QtCore/QStringList>

/// `kxhost series`: generates the addresses of copies of a tag.
int runSeries(const QStringList& arguments);

#endif
