#include "kxpanel/shell/page_table.h"

#include "kxpanel/frames/frames_page.h"
#include "kxpanel/grid/watch_page.h"
#include "kxpanel/health/health_page.h"
#include "kxpanel/line/line_page.h"
#include "kxpanel/recipes/recipes_page.h"

namespace kxpanel
{

std::vector<PageMaker> pageMakers()
{
    return {makerOf<WatchPage>(), makerOf<LinePage>(), makerOf<FramesPage>(), makerOf<HealthPage>(),
            makerOf<RecipesPage>()};
}

} // namespace kxpanel
