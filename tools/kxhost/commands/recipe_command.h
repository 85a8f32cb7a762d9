#ifndef KX_KXHOST_RECIPE_COMMAND_H
#define KX_KXHOST_RECIPE_COMMAND_H

#include <QtCore/QStringList>

/// `kxhost recipe`; returns an ExitCode.
int runRecipe(const QStringList& arguments);

#endif
