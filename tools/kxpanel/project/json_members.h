#ifndef KX_KXPANEL_PROJECT_JSON_MEMBERS_H
#define KX_KXPANEL_PROJECT_JSON_MEMBERS_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace kxpanel
{

/// Finds the first member whose name its object has already: a reader takes the last one and says
/// nothing.
/// @param text JSON, which may be broken or deeper than Qt reads; then it is looked at so far
/// @return where its name begins, in bytes; negative: there is none
int repeatedMember(const QByteArray& text, QString* name);

} // namespace kxpanel

#endif
