#ifndef KX_KXPANEL_SHELL_PAGE_TABLE_H
#define KX_KXPANEL_SHELL_PAGE_TABLE_H

#include "kxpanel/window/page.h"

#include <functional>
#include <vector>

namespace kxpanel
{

using PageMaker = std::function<Page*(const PageContext&, QWidget*)>;

template <class Made>
PageMaker makerOf()
{
    return [](const PageContext& context, QWidget* parent) -> Page* {
        return new Made(context, parent);
    };
}

/// The pages of the window from the left, but for those with plots, which main() adds.
std::vector<PageMaker> pageMakers();

} // namespace kxpanel

#endif
