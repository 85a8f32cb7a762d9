/// All pages of the window, as the program has them.
#ifndef KX_TESTS_TOOLS_KXPANEL_SHELL_ALL_PAGES_H
#define KX_TESTS_TOOLS_KXPANEL_SHELL_ALL_PAGES_H

#include "kxpanel/shell/main_window.h"
#ifdef KX_HAS_PLOTS
#include "kxpanel/trend/trend_page.h"
#endif

#include <vector>

namespace kxpanel
{

/// As far as they can be built.
inline std::vector<PageMaker> allPages()
{
    std::vector<PageMaker> pages = pageMakers();
#ifdef KX_HAS_PLOTS
    pages.insert(pages.begin() + 1, makerOf<TrendPage>());
#endif
    return pages;
}

} // namespace kxpanel

#endif
