#ifndef KX_KXHOST_SCAN_SCAN_VIEW_H
#define KX_KXHOST_SCAN_SCAN_VIEW_H

#include "kxhost/scan/line_search.h"
#include "kxhost/views/scan_progress.h"
#include "panel/jobs/scan_reply.h"

#include <QtCore/QJsonObject>

namespace kx
{

/// What a scan prints: who answers, and on a terminal a bar below that. A search tells the settings
/// of the line, too: those tried, unless a bar shows them, and those found.
class ScanView
{
public:
    /// @param stopBits 1 or 2, for the settings
    ScanView(bool isSearch, int stopBits, bool json);

    void showAnswer(const LineFormat& format, const ScanReply& reply);
    void showProgress(const LineFormat& format, const ScanProgress& progress);
    /// So many stations were asked for in that format.
    void showTried(const LineFormat& format, int stations, int answered,
                   const ScanProgress& progress);

    /// Of stations in the format found, or the only one.
    void showSummary(const LineFormat& format, int answered, int asked, int notAsked);
    /// Of a search in vain, which was stopped when not all was done.
    void showNothingFound(int formats, const ScanProgress& progress);

private:
    QString text(const LineFormat& format) const;
    QJsonObject json(const char* event, const LineFormat& format) const;
    void clearBar();

    bool m_isSearch;
    int m_stopBits;
    bool m_json;
    bool m_bar;
    bool m_isFound = false;
};

} // namespace kx

#endif
