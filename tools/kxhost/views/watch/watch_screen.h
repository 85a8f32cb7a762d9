/// What the terminal shows while watching. Pure functions.
#ifndef KX_KXHOST_VIEWS_WATCH_WATCH_SCREEN_H
#define KX_KXHOST_VIEWS_WATCH_WATCH_SCREEN_H

#include "panel/text/summary_text.h"
#include "panel/watch/watch_list.h"

#include <QtCore/QStringList>

namespace kx
{

struct WatchScreen {
    QString line;  ///< the line's name
    QString fault; ///< of the line or its stations now; empty when there is none
    WatchSummary summary;
    QVector<WatchEntry> entries; ///< those that are seen, see TableWindow
    int longestName = 0;         ///< cells, of all entries
    qint64 now = 0;              ///< as WatchEntry::changedAt
    QString position;            ///< as TableWindow::position()
    QString message;             ///< about the last assignment
    QString prompt;              ///< what is being typed
    bool takesKeys = false;
};

/// "9600 8N1"; `parity` one of N, E, O. Empty on a network.
QString lineSettingsText(const LineTiming& timing, QChar parity);

/// Lines of a screen that entries and their position have; may be below 0.
int linesForEntries(int height, bool takesKeys);

/// Title, counts, table, its position, then message and prompt when keys are taken: at most
/// `height` lines of at most `width` cells.
QStringList screenRows(const WatchScreen& screen, int width, int height);

} // namespace kx

#endif
