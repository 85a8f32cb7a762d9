/// The two bytes of the runtime's shared block that request recipe transfers.
/// Each access locks the runtime's mutex.
#ifndef TARVELAN_MODBUS_RECIPE_REQUESTS_H
#define TARVELAN_MODBUS_RECIPE_REQUESTS_H

struct RecipeRequests {
    bool write;
    bool read;
};

/// What is requested now; nothing when the runtime gave no shared block.
RecipeRequests recipeRequests();

void clearRecipeWriteRequest();
void clearRecipeReadRequest();

#endif
