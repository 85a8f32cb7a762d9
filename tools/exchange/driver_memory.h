/// The memory that a runtime lends the driver, see intf_initProperty().
#ifndef KX_EXCHANGE_DRIVER_MEMORY_H
#define KX_EXCHANGE_DRIVER_MEMORY_H

#include <cstddef>

namespace kx
{

// Bytes of the shared block: 1 asks for a recipe transfer, and the driver sets it to 0 at the end.
const int RECIPE_WRITE_REQUEST = 60115;
const int RECIPE_READ_REQUEST = 60116;
const std::size_t SHARED_BLOCK_SIZE = RECIPE_READ_REQUEST + 1; ///< bytes

/// Words of the recipe buffer: all that _RCP_VAR_PRO::bufOffset can name.
const int RECIPE_BUFFER_WORDS = 65536;

} // namespace kx

#endif
