#ifndef KX_KXPANEL_FRAMES_SAVED_FRAMES_H
#define KX_KXPANEL_FRAMES_SAVED_FRAMES_H

#include "kxpanel/machine/machine_events.h"

namespace kxpanel
{

/// Two lines for each exchange, as `kxhost --frames` prints them.
QByteArray framesAsText(const QVector<Exchange>& exchanges);

/// A JSON object per line, as `kxhost --frames --json` prints them.
QByteArray framesAsJson(const QVector<Exchange>& exchanges);

/// A capture as `kxhost listen --pcap` writes it; frames were on the line when their exchange began
/// and ended. Requests that were not sent are left out.
QByteArray framesAsCapture(const QVector<Exchange>& exchanges);

/// Replaces a file: with JSON where its name ends in ".json" or ".jsonl", with a capture where it
/// ends in ".pcap", else with text.
/// @return how many exchanges it has, of which a capture leaves some out; -1 and one line in
/// `*error`
///         that names the file when it could not be written
int saveFrames(const QString& path, const QVector<Exchange>& exchanges, QString* error);

} // namespace kxpanel

#endif
