/// What Modbus RTU sets for requests and replies.
#ifndef KX_ADDRESSES_REQUEST_LIMITS_H
#define KX_ADDRESSES_REQUEST_LIMITS_H

namespace kx
{

// The most that one request may ask for or carry; a controller refuses more.
const int MOST_REGISTERS_PER_READ = 125;
const int MOST_COILS_PER_READ = 2000;
const int MOST_REGISTERS_PER_WRITE = 123;
const int MOST_COILS_PER_WRITE = 1968;

const int BYTES_PER_REGISTER = 2;
const int COILS_PER_BYTE = 8;

// A read's request, and its reply besides the values.
const int READ_REQUEST_BYTES = 8;
const int READ_REPLY_BYTES = 5;

/// Set in the function of a reply that refuses its request.
const int EXCEPTION_FLAG = 0x80;

} // namespace kx

#endif
