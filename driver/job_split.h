/// Cutting a range that is longer than one request may be.
#ifndef TARVELAN_DRIVER_JOB_SPLIT_H
#define TARVELAN_DRIVER_JOB_SPLIT_H

/// Pieces of at most `limit` elements that `count` elements make. `limit` must
/// not be 0; below 0 it yields no piece for as many elements as its magnitude.
inline int pieceCount(int count, int limit)
{
    return count / limit + (count % limit != 0 ? 1 : 0);
}

/// Elements in piece number `piece`, from 0.
inline int pieceLength(int count, int limit, int piece)
{
    const bool isLast = piece == pieceCount(count, limit) - 1;
    const int remainder = count % limit;
    return isLast && remainder != 0 ? remainder : limit;
}

#endif
