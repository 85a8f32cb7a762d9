#include "kxpanel/shell/page_table.h"

#include "kxpanel/frames/frames_page.h"
#include "kxpanel/grid/watch_page.h"

namespace kxpanel
{

std::vector<PageMaker> pageMakers()
{
    return {makerOf<WatchPage>(), makerOf<FramesPage>()};
}

} // namespace kxpanel
