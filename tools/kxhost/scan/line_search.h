/// In which order the settings of a line are tried. Pure functions.
#ifndef KX_KXHOST_SCAN_LINE_SEARCH_H
#define KX_KXHOST_SCAN_LINE_SEARCH_H

#include <QtCore/QList>

namespace kx
{

struct LineFormat {
    int baud = 9600;   ///< bits per second
    char parity = 'N'; ///< or 'E' or 'O'
};

/// What is asked for in one go.
struct SearchStep {
    LineFormat format;
    QList<int> stations;
};

/// The formats to try, likeliest first: 9600 baud without parity, the controllers' own setting,
/// then the rates that people raise it to, in rising order, then those below; all of these without
/// parity, which few people change, then with even parity, the standard's choice, then with odd.
/// @param given what is not searched for stays like this
QList<LineFormat> formatsToTry(const LineFormat& given, bool anyBaud, bool anyParity);

/// With several formats the first station is asked for in all of them, then the next nine, then
/// the others: a line mostly has its first station among the lowest numbers, and a format that is
/// wrong costs a time-out for each station asked.
QList<SearchStep> searchSteps(const QList<LineFormat>& formats, const QList<int>& stations);

/// The stations that none of the steps has asked for in that format.
QList<int> stationsLeft(const QList<SearchStep>& steps, const LineFormat& format,
                        const QList<int>& stations);

} // namespace kx

#endif
