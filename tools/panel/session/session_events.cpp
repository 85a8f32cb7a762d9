#include "panel/session/session_events.h"

namespace kx
{

void registerEventTypes()
{
    // Under the names by which signals know them.
    qRegisterMetaType<ExchangeRecord>("kx::ExchangeRecord");
    qRegisterMetaType<ValueChange>("kx::ValueChange");
    qRegisterMetaType<ReadEnd>("kx::ReadEnd");
    qRegisterMetaType<WriteEnd>("kx::WriteEnd");
    qRegisterMetaType<AddressRange>("kx::AddressRange");
    qRegisterMetaType<RecipeEnd>("kx::RecipeEnd");
    qRegisterMetaType<Failure>("kx::Failure");
}

bool isWhole(const AddressRange& value, const ValueChange& change)
{
    const AddressRange& request = change.request;
    return value.station == request.station && value.type == request.type
           && value.address >= request.address
           && value.address + value.values <= request.address + request.values;
}

} // namespace kx
