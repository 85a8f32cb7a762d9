#ifndef KX_PANEL_SESSION_RECIPE_FEED_H
#define KX_PANEL_SESSION_RECIPE_FEED_H

#include "panel/recipe/recipe_layout.h"
#include "panel/session/driver_port.h"

namespace kx
{

/// Recipes that wait for their turn, each known by its handle. The driver has one at a time,
/// of one pass; the passes of one follow each other before the next begins.
class RecipeFeed
{
public:
    /// What an exchange has changed.
    struct Step {
        int handle = 0;     ///< of the recipe; 0: nothing
        AddressRange block; ///< that a station has answered; without a type: none
        bool hasEnded = false;
        RecipeEnd end;
    };

    explicit RecipeFeed(DriverPort* port) : m_port(port) {}

    /// The words of the recipes added from now on. False when they are too many.
    bool load(const std::vector<quint16>& words);
    /// Waits behind the earlier ones; see feed().
    void add(int handle, RecipeDirection direction, const QList<RecipePass>& passes);
    /// Begins the next recipe, or pass, when none is under way.
    void feed();

    Step onExchange(const ExchangeRecord& record);
    /// Takes a recipe back, from the driver too. Gives one without a handle when there is none.
    /// @param inFlight the request that is on its way, or null
    Step take(int handle, const VARIABLE* inFlight);
    /// All, in their order.
    QList<Step> takeAll(const VARIABLE* inFlight);

private:
    struct Recipe {
        int handle = 0; ///< 0: none
        RecipeDirection direction = RecipeDirection::Download;
        std::vector<quint16> words;
        QList<RecipePass> passes; ///< not yet transferred
    };

    Step takeCurrent(const VARIABLE* inFlight);

    DriverPort* m_port;
    std::vector<quint16> m_words;
    QList<Recipe> m_waiting;
    Recipe m_current;
    bool m_isPassUnderWay = false;
    AddressRange m_unsettled; ///< of the current one, see RecipeEnd
};

} // namespace kx

#endif
