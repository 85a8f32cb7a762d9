/// What is wrong with what came back for a request, in the words of its fields. Pure functions.
#ifndef KX_PANEL_TEXT_REPLY_FAULTS_H
#define KX_PANEL_TEXT_REPLY_FAULTS_H

#include "exchange/replies/reply_parts.h"
#include "system/translated_text.h"

namespace kx
{

/// "CRC 9B 37 instead of 9B 36", "cut short: 4 of 9 bytes", "reply of station 2", "bytes in no
/// frame (55 AA), then the reply"; empty when nothing came or nothing but the reply, good or a
/// refusal.
QString replyFaults(const ExchangeRecord& record, Wording wording);

/// The same of one part.
/// @param answer the record's, by which a frame behind it is told to be a double; empty: none
QString partFaults(const QByteArray& request, const ReplyPart& part, const QByteArray& answer,
                   Wording wording);

} // namespace kx

#endif
